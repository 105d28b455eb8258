// The engine's face: reductions to black and white.
#include "engine/image_process.h"

#include "engine/picture_checks.h"
#include "process/despeckle.h"
#include "reduce/local_black_white.h"
#include "reduce/otsu.h"

namespace kelvane {

bool cImageProcessDIB::BlackAndWhite(cDIBSection& cSource, cDIBSection& cDestination, int limit) {
    if (!same_size(cSource, cDestination)) return false;
    kelvane::BlackAndWhite(cSource.view(), cDestination.view(), limit, observer_);
    return true;
}

bool cImageProcessDIB::BlackAndWhite2(cDIBSection& cSource, cDIBSection& cDestination, int limit) {
    if (!same_size(cSource, cDestination)) return false;
    kelvane::BlackAndWhite2(cSource.view(), cDestination.view(), limit, observer_);
    return true;
}

bool cImageProcessDIB::LineArt2(cDIBSection& cSource, cDIBSection& cDestination, int limit,
                                Channels channels) {
    if (!same_size(cSource, cDestination)) return false;
    if (!channels.red && !channels.green && !channels.blue) return false;
    kelvane::LineArt2(cSource.view(), cDestination.view(), limit, channels, observer_);
    return true;
}

bool cImageProcessDIB::EdgeDetect2(cDIBSection& cSource, cDIBSection& cDestination, int limit) {
    if (!same_size(cSource, cDestination)) return false;
    kelvane::EdgeDetect2(cSource.view(), cDestination.view(), limit, observer_);
    return true;
}

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
