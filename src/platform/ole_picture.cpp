#include "platform/ole_picture.h"

#include "platform/com.h"
#include "platform/paper.h"

#include <windows.h>

#include <cstring>
#include <ocidl.h>
#include <olectl.h>

namespace kelvane {
namespace {

constexpr int kHundredthMillimetresPerInch = 2540;
constexpr int kPixelsPerInch = 96;
constexpr int kLargestSide = 16384; // a metafile's size is a mere claim

int natural_pixels(long hundredth_millimetres) {
    return MulDiv(hundredth_millimetres, kPixelsPerInch, kHundredthMillimetresPerInch);
}

// A top-down bitmap of four bytes per pixel in memory, and the device context that draws into it.
class Canvas {
  public:
    Canvas(int width, int height) : dc_(CreateCompatibleDC(nullptr)) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        bitmap_ = dc_ ? CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits, nullptr, 0) : nullptr;
        if (!bitmap_) {
            if (dc_) DeleteDC(dc_);
            throw FileError("not enough memory for the picture");
        }
        bits_ = static_cast<std::uint8_t*>(bits);
        former_ = SelectObject(dc_, bitmap_);
        std::memset(bits_, 0xFF,
                    std::size_t{4} * static_cast<std::size_t>(width) *
                        static_cast<std::size_t>(height));
    }
    ~Canvas() {
        SelectObject(dc_, former_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    HDC dc() const { return dc_; }
    const std::uint8_t* bits() const {
        GdiFlush();
        return bits_;
    }

  private:
    HDC dc_;
    HBITMAP bitmap_;
    HGDIOBJ former_;
    std::uint8_t* bits_;
};

ComPointer<IPicture> load(std::span<const std::uint8_t> file_bytes) {
    const ComPointer<IStream> stream = stream_over(file_bytes);
    void* object = nullptr;
    if (FAILED(OleLoadPicture(stream.get(), static_cast<LONG>(file_bytes.size()), FALSE,
                              IID_IPicture, &object)) ||
        !object)
        throw FileError("not a picture, or of an unknown kind");
    return ComPointer<IPicture>(static_cast<IPicture*>(object));
}

} // namespace

cDIBSection read_with_ole(std::span<const std::uint8_t> file_bytes) {
    const ComPointer<IPicture> loaded = load(file_bytes);
    OLE_XSIZE_HIMETRIC natural_width = 0;
    OLE_YSIZE_HIMETRIC natural_height = 0;
    loaded->get_Width(&natural_width);
    loaded->get_Height(&natural_height);
    const int width = natural_pixels(natural_width);
    const int height = natural_pixels(natural_height);
    if (width > kLargestSide || height > kLargestSide) throw FileError("the picture is too large");

    cDIBSection picture = create_picture(width, height);
    const Canvas canvas(width, height);
    // The picture's own coordinates grow upward.
    if (FAILED(loaded->Render(canvas.dc(), 0, 0, width, height, 0, natural_height, natural_width,
                              -natural_height, nullptr)))
        throw FileError("the picture cannot be drawn");
    put_on_white_paper(canvas.bits(), std::ptrdiff_t{4} * width, {4, 0, 1, 2, -1}, picture);
    return picture;
}

} // namespace kelvane
