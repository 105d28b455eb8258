#include "engine/image_process.h"

#include "process/dark_bounds.h"
#include "process/despeckle.h"
#include "process/diffusion.h"
#include "process/filters.h"
#include "process/grayscale.h"
#include "process/tone.h"
#include "reduce/otsu.h"

#include <stdexcept>
#include <utility>

namespace kelvane {
namespace {

constexpr std::uint32_t kObjectErrorBase = 0x80040000;

struct PropertyError {
    std::uint32_t number;
    int string_id;
    const char* text;
};
constexpr PropertyError kInvalidType{kObjectErrorBase + 1306, 16100, "Invalid filter types."};
constexpr PropertyError kEvenSize{kObjectErrorBase + 1305, 16101, "Size must be an odd number"};
constexpr PropertyError kInvalidSize{kObjectErrorBase + 1306, 16102,
                                     "Invalid size.  Size should be an odd number from 3 to 9"};

[[noreturn]] void raise(const PropertyError& error, const std::string& executable_name) {
    throw EngineError(error.number, error.string_id, error.text,
                      executable_name + ".cImageProcess");
}

// Two pictures of one size, neither empty.
bool same_size(const cDIBSection& a, const cDIBSection& b) {
    return !a.empty() && !b.empty() && a.Width() == b.Width() && a.Height() == b.Height();
}

// `from` is at least as large as `to`, neither empty.
bool covers(const cDIBSection& from, const cDIBSection& to) {
    return !from.empty() && !to.empty() && from.Width() >= to.Width() &&
           from.Height() >= to.Height();
}

} // namespace

cImageProcessDIB::cImageProcessDIB(std::string executable_name)
    : executable_name_(std::move(executable_name)), filter_type_(kBlur),
      kernel_(predefined_kernel(kBlur)), random_(std::random_device{}()) {}

void cImageProcessDIB::set_FilterType(int type) {
    if (type < kBlur || type > kCustom) raise(kInvalidType, executable_name_);
    filter_type_ = type;
    if (has_predefined_kernel(type))
        kernel_ = predefined_kernel(type);
    else if (type != kCustom)
        kernel_.set_weight(0);
}

void cImageProcessDIB::set_FilterArraySize(int size) {
    if (size % 2 == 0) raise(kEvenSize, executable_name_);
    if (size < 0 || size > FilterKernel::kLargestSize) raise(kInvalidSize, executable_name_);
    kernel_ = FilterKernel(size, kernel_.weight());
}

std::int32_t cImageProcessDIB::FilterValue(int x, int y) const {
    if (!kernel_.contains(x, y)) throw std::out_of_range("no such filter cell");
    return kernel_.cell(x, y);
}

void cImageProcessDIB::set_FilterValue(int x, int y, std::int32_t value) {
    if (!kernel_.contains(x, y)) throw std::out_of_range("no such filter cell");
    kernel_.set_cell(x, y, value);
}

bool cImageProcessDIB::ProcessImage(cDIBSection& cImage, cDIBSection& cBuffer) {
    if (!same_size(cImage, cBuffer) || &cImage == &cBuffer) return false;
    const ImageView image = cImage.view();
    const ImageView buffer = cBuffer.view();
    switch (filter_type_) {
    case kReserved:
        return false;
    case kUnsharp:
        kernel_ = predefined_kernel(kBlur);
        kernel_.set_weight(0);
        unsharp(image, buffer, observer_);
        return true;
    case kMeanRank:
        rank_in_place(image, buffer, Rank::Mean, observer_);
        return true;
    case kMinimumRank:
        rank_in_place(image, buffer, Rank::Minimum, observer_);
        return true;
    case kMaximumRank:
        rank_in_place(image, buffer, Rank::Maximum, observer_);
        return true;
    default:
        return kernel_.weight() != 0 && run_convolution(image, buffer);
    }
}

bool cImageProcessDIB::run_convolution(ImageView image, ImageView buffer) {
    switch (filter_type_) {
    case kEmboss:
        emboss(image, buffer, kernel_, observer_);
        break;
    case kEmphasizeFirst:
        convolve_to_buffer(image, buffer, kernel_, observer_);
        break;
    case kEmphasizeSecond:
        convolve(buffer, image, kernel_, observer_);
        break;
    default:
        convolve_in_place(image, buffer, kernel_, observer_);
    }
    return true;
}

bool cImageProcessDIB::Combine(const cDIBSection& cFrom, cDIBSection& cTo,
                               const Combination& combination) {
    if (!covers(cFrom, cTo)) return false;
    kelvane::Combine(cFrom.view(), cTo.view(), combination, observer_);
    return true;
}

bool cImageProcessDIB::GrayScale(cDIBSection& cImage) {
    if (cImage.empty()) return false;
    kelvane::GrayScale(cImage.view(), observer_);
    return true;
}

bool cImageProcessDIB::Fade(cDIBSection& cImage, int level) {
    if (cImage.empty()) return false;
    kelvane::Fade(cImage.view(), level, observer_);
    return true;
}

bool cImageProcessDIB::Lighten(cDIBSection& cImage, int percent) {
    if (cImage.empty()) return false;
    kelvane::Lighten(cImage.view(), percent, observer_);
    return true;
}

bool cImageProcessDIB::Colourise(cDIBSection& cImage, float fHue, float /*fSaturation*/) {
    if (cImage.empty()) return false;
    kelvane::Colourise(cImage.view(), fHue, observer_);
    return true;
}

bool cImageProcessDIB::AddNoise(cDIBSection& cImage, int percent, bool bRandom) {
    if (cImage.empty()) return false;
    kelvane::AddNoise(cImage.view(), percent, bRandom, random_, observer_);
    return true;
}

bool cImageProcessDIB::NegativeImage(cDIBSection& cImage) {
    if (cImage.empty()) return false;
    kelvane::NegativeImage(cImage.view(), observer_);
    return true;
}

bool cImageProcessDIB::ApplyPalette(cDIBSection& cImage, cDIBSection& cBuffer,
                                    const cPalette& cPal) {
    if (!same_size(cImage, cBuffer) || cPal.Count() == 0) return false;
    kelvane::ApplyPalette(cImage.view(), cBuffer.view(), cPal, observer_);
    return true;
}

bool cImageProcessDIB::Steinberg(cDIBSection& cImage, cDIBSection& cBuffer) {
    if (!same_size(cImage, cBuffer)) return false;
    kelvane::Steinberg(cImage.view(), cBuffer.view(), observer_);
    return true;
}

bool cImageProcessDIB::Reduce(cDIBSection& cSource, cDIBSection& cDestination,
                              const Reduction& reduction) {
    if (!same_size(cSource, cDestination) || !reduction.possible()) return false;
    reduce_by_kind(cSource.view(), cDestination.view(), reduction, observer_);
    if (reduction.inverted) NegativeImage(cDestination);
    if (reduction.largest_speck > 0) Despeckle(cDestination, reduction.largest_speck);
    const bool both_done =
        &cSource == &cDestination || (!reduction.inverted && reduction.largest_speck == 0);
    if (!both_done) copy_pixels(cDestination.view(), cSource.view());
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

ExportReport cImageProcessDIB::Vectorize(const cDIBSection& cImage,
                                         const std::filesystem::path& FileName,
                                         const ExportOptions& options) {
    range_ovl_ = false;
    if (cImage.empty()) return {};
    const ExportReport report = kelvane::Vectorize(cImage.view(), FileName, options, observer_);
    range_ovl_ = report.RangeOVL;
    return report;
}

} // namespace kelvane
