// cDIBSection, the one image type: a 24-bit bottom-up bitmap that owns its pixels.
#pragma once

#include "image/gdi_handles.h"
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
    bool Create(int lWidth, int lHeight) { return create(lWidth, lHeight, nullptr); }
    /// Frees the pixels. The object is empty afterwards; `Create` may be called again.
    void ClearUp();

    int Width() const { return width_; }
    int Height() const { return height_; }
    /// Bytes of one row: width x 3, rounded up to a multiple of four.
    int BytesPerScanLine() const { return bytes_per_scan_line(width_); }
    /// First byte of memory row 0; null while empty.
    std::uint8_t* DIBSectionBitsPtr() { return store_ ? store_->bits() : nullptr; }
    const std::uint8_t* DIBSectionBitsPtr() const { return store_ ? store_->bits() : nullptr; }
    /// The device context and the bitmap selected into it; null while empty and for heap memory.
    DeviceContext hdc() const { return store_ ? store_->device_context() : nullptr; }
    BitmapHandle hDib() const { return store_ ? store_->bitmap() : nullptr; }

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

    // GDI. Defined only in programs whose pixels are DIB sections: others have nothing to draw
    // with, and do not link when they call one of these.

    /// `Create` with a device context that is compatible with `lHDC`, or with the screen for null.
    /// `hDib` becomes the bitmap, which belongs to this object; null after a failure.
    bool CreateDIB(DeviceContext lHDC, int lWidth, int lHeight, BitmapHandle& hDib);
    /// Replaces the picture by a copy of a bitmap, which must not be selected into a device
    /// context. False, and empty, when that failed.
    bool CreateFromPicture(BitmapHandle picThis);
    /// Copies pixels of `lHDC`, from (`lSrcLeft`, `lSrcTop`) on, to the upper left corner of this
    /// picture. Here and below a negative width or height stands for this picture's, y counts
    /// from the top, and `eRop` is a raster operation of BitBlt. False when GDI refuses.
    bool LoadPictureBlt(DeviceContext lHDC, int lSrcLeft, int lSrcTop, int lSrcWidth = -1,
                        int lSrcHeight = -1, std::uint32_t eRop = kSourceCopy);
    /// Copies this picture, from (`lSrcLeft`, `lSrcTop`) on, to (`lDestLeft`, `lDestTop`) of
    /// `lHDC`.
    bool PaintPicture(DeviceContext lHDC, int lDestLeft, int lDestTop, int lDestWidth = -1,
                      int lDestHeight = -1, int lSrcLeft = 0, int lSrcTop = 0,
                      std::uint32_t eRop = kSourceCopy) const;
    /// Puts the picture on the clipboard as a bitmap of the screen's format; Windows offers it as
    /// a device-independent bitmap as well. False when that failed. `bAsDIB` is not supported: a
    /// message box says so, and the clipboard stays as it is. `owner` becomes the clipboard's
    /// owner and the message box's. Defined in the desktop program, which has the texts.
    bool CopyToClipboard(bool bAsDIB, WindowHandle owner = nullptr) const;

    static constexpr int bytes_per_scan_line(int width) {
        return static_cast<int>((static_cast<std::int64_t>(width) * 3 + 3) & ~std::int64_t{3});
    }

  private:
    bool create(int width, int height, DeviceContext like);

    std::unique_ptr<PixelStore> store_;
    int width_ = 0;
    int height_ = 0;
};

} // namespace kelvane
