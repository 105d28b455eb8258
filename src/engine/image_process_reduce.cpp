// The engine's face: reductions that look at the whole picture, and their clean-up.
#include "engine/image_process.h"

#include "engine/picture_checks.h"
#include "process/despeckle.h"
#include "reduce/local_black_white.h"
#include "reduce/otsu.h"

namespace kelvane {

bool cImageProcessDIB::LocalBlackWhite(cDIBSection& cSource, cDIBSection& cDestination, int size,
                                       int offset) {
    if (!same_size(cSource, cDestination)) return false;
    if (size % 2 == 0 || size < kLeastNeighbourhood || size > kLargestNeighbourhood) return false;
    if (offset < -kLargestOffset || offset > kLargestOffset) return false;
    kelvane::LocalBlackWhite(cSource.view(), cDestination.view(), size, offset, observer_);
    return true;
}

std::optional<int> cImageProcessDIB::OtsuLimit(const cDIBSection& cImage) {
    if (cImage.empty()) return std::nullopt;
    return kelvane::OtsuLimit(cImage.view(), observer_);
}

bool cImageProcessDIB::Despeckle(cDIBSection& cImage, int most) {
    if (cImage.empty() || most < 0) return false;
    kelvane::Despeckle(cImage.view(), kExportLimit, most, observer_);
    return true;
}

} // namespace kelvane
