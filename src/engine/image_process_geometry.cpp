// The engine's face: pictures cut, mirrored and turned.
#include "engine/image_process.h"

#include "process/dark_bounds.h"

#include <utility>

namespace kelvane {

std::optional<PixelRect> cImageProcessDIB::DarkBounds(const cDIBSection& cImage) {
    if (cImage.empty()) return std::nullopt;
    return kelvane::DarkBounds(cImage.view(), kExportLimit, observer_);
}

bool cImageProcessDIB::Crop(cDIBSection& cImage, const PixelRect& part, int margin) {
    if (cImage.empty() || !lies_inside(part, cImage.Width(), cImage.Height())) return false;
    if (margin < 0 || margin > kLargestMargin) return false;
    cDIBSection result;
    if (!result.Create(part.width + 2 * margin, part.height + 2 * margin)) return false;
    kelvane::Crop(std::as_const(cImage).view(), part, result.view(), margin, observer_);
    cImage = std::move(result);
    return true;
}

bool cImageProcessDIB::Mirror(cDIBSection& cImage) {
    if (cImage.empty()) return false;
    kelvane::Mirror(cImage.view(), observer_);
    return true;
}

bool cImageProcessDIB::Flip(cDIBSection& cImage) {
    if (cImage.empty()) return false;
    kelvane::Flip(cImage.view(), observer_);
    return true;
}

bool cImageProcessDIB::RotateHalf(cDIBSection& cImage) {
    if (cImage.empty()) return false;
    kelvane::RotateHalf(cImage.view(), observer_);
    return true;
}

bool cImageProcessDIB::RotateRight(cDIBSection& cImage) {
    return rotate_quarter(cImage, kelvane::RotateRight);
}

bool cImageProcessDIB::RotateLeft(cDIBSection& cImage) {
    return rotate_quarter(cImage, kelvane::RotateLeft);
}

bool cImageProcessDIB::rotate_quarter(cDIBSection& cImage, void (*rotate)(ConstImageView, ImageView,
                                                                          ProgressObserver*)) {
    cDIBSection result;
    if (cImage.empty() || !result.Create(cImage.Height(), cImage.Width())) return false;
    rotate(std::as_const(cImage).view(), result.view(), observer_);
    cImage = std::move(result);
    return true;
}

} // namespace kelvane
