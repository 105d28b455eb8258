// cDIBSection, the one image type: a 24-bit bottom-up bitmap that owns its pixels.
#pragma once

#include "image/image_view.h"
#include "image/pixel_store.h"

#include <cstdint>
#include <memory>
#include <utility>

namespace kelvane {

/// A picture of `Width` x `Height` pixels: three bytes each (blue, green, red), rows padded to a
/// multiple of four bytes, memory row 0 the bottom row as displayed. Empty until `Create`
/// succeeds. Move-only: a copy is made by name (`Copy`, `Resample`), never by accident.
class cDIBSection {
  public:
    cDIBSection() = default;
    /// The other picture becomes empty.
    cDIBSection(cDIBSection&& other) noexcept { *this = std::move(other); }
    cDIBSection& operator=(cDIBSection&& other) noexcept {
        store_ = std::move(other.store_);
        width_ = std::exchange(other.width_, 0);
        height_ = std::exchange(other.height_, 0);
        return *this;
    }

    /// Whether there can be a picture of this size: both sides at least 1, less than 2 GB.
    static bool fits(std::int64_t width, std::int64_t height);

    /// Replaces the picture by a black one of the given size. False, and empty, when that
    /// size does not fit or there is no memory left.
    bool Create(int lWidth, int lHeight);
    /// Gives the pixels back; the object is empty and can be created anew.
    void ClearUp();

    int Width() const { return width_; }
    int Height() const { return height_; }
    /// Bytes of one row: width x 3, rounded up to a multiple of four.
    int BytesPerScanLine() const { return bytes_per_scan_line(width_); }
    /// First byte of memory row 0; null while empty.
    std::uint8_t* DIBSectionBitsPtr() { return store_ ? store_->bits() : nullptr; }
    const std::uint8_t* DIBSectionBitsPtr() const { return store_ ? store_->bits() : nullptr; }
    /// Device context and bitmap handle (HDC, HBITMAP); null while empty and for heap memory.
    void* hdc() const { return store_ ? store_->device_context() : nullptr; }
    void* hDib() const { return store_ ? store_->bitmap() : nullptr; }

    bool empty() const { return store_ == nullptr; }
    ImageView view();
    ConstImageView view() const;

    /// A second picture with the same pixels; empty when there is no memory for it.
    cDIBSection Copy() const;
    /// The picture at another size (height first), bilinear; an exact copy when the size is the
    /// same. Empty when it cannot be created; this picture stays as it is.
    cDIBSection Resample(int lNewHeight, int lNewWidth) const;

    /// Fills the picture with noise seeded by the time of day; see `randomise_bits`.
    void RandomiseBits(bool bGray);

    static constexpr int bytes_per_scan_line(int width) {
        return static_cast<int>((static_cast<std::int64_t>(width) * 3 + 3) & ~std::int64_t{3});
    }

  private:
    std::unique_ptr<PixelStore> store_;
    int width_ = 0;
    int height_ = 0;
};

} // namespace kelvane
