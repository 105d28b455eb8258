#include "engine/image_process.h"

#include "engine/picture_checks.h"
#include "process/combine.h"
#include "process/filters.h"

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

bool cImageProcessDIB::AddLightest(const cDIBSection& cFrom, cDIBSection& cTo) {
    if (!covers(cFrom, cTo)) return false;
    kelvane::AddLightest(cFrom.view(), cTo.view(), observer_);
    return true;
}

bool cImageProcessDIB::AddDarkest(const cDIBSection& cFrom, cDIBSection& cTo) {
    if (!covers(cFrom, cTo)) return false;
    kelvane::AddDarkest(cFrom.view(), cTo.view(), observer_);
    return true;
}

bool cImageProcessDIB::AddImages(const cDIBSection& cFrom, cDIBSection& cTo, int lFromMultiplier,
                                 int lFromOffsetR, int lFromOffsetG, int lFromOffsetB,
                                 int lToMultiplier, int lToOffsetR, int lToOffsetG,
                                 int lToOffsetB) {
    if (!covers(cFrom, cTo)) return false;
    kelvane::AddImages(cFrom.view(), cTo.view(),
                       {lFromMultiplier, lFromOffsetR, lFromOffsetG, lFromOffsetB},
                       {lToMultiplier, lToOffsetR, lToOffsetG, lToOffsetB}, observer_);
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
