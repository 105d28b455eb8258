#include "image/dib_section.h"

#include "image/random_bits.h"
#include "image/resample.h"

#include <chrono>
#include <cstring>
#include <limits>

namespace kelvane {
void copy_pixels(ConstImageView from, ImageView to) {
    for (int y = 0; y < to.height; ++y)
        std::memcpy(to.row(y), from.row(y), static_cast<std::size_t>(to.width) * 3);
}

// A bitmap's size field and row length are 32-bit numbers.
bool cDIBSection::fits(std::int64_t width, std::int64_t height) {
    constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
    if (width < 1 || height < 1 || width > (kMost - 3) / 3 || height > kMost) return false;
    return std::int64_t{bytes_per_scan_line(static_cast<int>(width))} * height <= kMost;
}

bool cDIBSection::create(int width, int height, DeviceContext like) {
    ClearUp();
    if (!fits(width, height)) return false;
    store_ = PixelStore::create(width, height, static_cast<std::size_t>(bytes_per_scan_line(width)),
                                like);
    if (!store_) return false;
    width_ = width;
    height_ = height;
    return true;
}

void cDIBSection::ClearUp() {
    store_.reset();
    width_ = 0;
    height_ = 0;
}

ImageView cDIBSection::view() {
    ImageView view;
    view.bits = DIBSectionBitsPtr();
    view.width = width_;
    view.height = height_;
    view.row_step = BytesPerScanLine();
    return view;
}

ConstImageView cDIBSection::view() const {
    return {DIBSectionBitsPtr(), width_, height_, BytesPerScanLine()};
}

cDIBSection cDIBSection::Copy() const {
    cDIBSection copy;
    if (!empty() && copy.Create(width_, height_)) copy_pixels(view(), copy.view());
    return copy;
}

cDIBSection cDIBSection::Resample(int lNewHeight, int lNewWidth) const {
    if (lNewWidth == width_ && lNewHeight == height_) return Copy();
    cDIBSection result;
    if (!empty() && result.Create(lNewWidth, lNewHeight)) resample_bilinear(view(), result.view());
    return result;
}

void cDIBSection::RandomiseBits(bool bGray) {
    using namespace std::chrono;
    const auto now = system_clock::now();
    const auto since_midnight = now - floor<days>(now);
    RandomSource random(static_cast<std::uint32_t>(floor<seconds>(since_midnight).count()));
    randomise_bits(view(), bGray, random);
}

} // namespace kelvane
