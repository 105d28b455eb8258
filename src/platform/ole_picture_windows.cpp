#include "platform/ole_picture_windows.h"

#include "base/owned.h"

#include <ocidl.h>
#include <olectl.h>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace kelvane {
namespace {

constexpr PixelLayout kBgrx = {4, 0, 1, 2, -1};
constexpr double kLongestSide = 4096;

using Device = Owned<HDC, DeleteDC>;
using Bitmap = Owned<HBITMAP, DeleteObject>;

struct Size {
    int width;
    int height;
};

// Sizes of OLE pictures are in hundredths of a millimetre.
struct Extent {
    OLE_XSIZE_HIMETRIC width = 0;
    OLE_YSIZE_HIMETRIC height = 0;
};

Extent extent_of(IPicture& picture) {
    Extent extent;
    throw_if_failed(picture.get_Width(&extent.width));
    throw_if_failed(picture.get_Height(&extent.height));
    return extent;
}

Size size_in_pixels(Extent extent) {
    constexpr double kDotsPerInch = 96;
    constexpr double kHundredthsPerInch = 2540;
    const double width = std::abs(extent.width * kDotsPerInch / kHundredthsPerInch);
    const double height = std::abs(extent.height * kDotsPerInch / kHundredthsPerInch);
    const double scale = std::min(1.0, kLongestSide / std::max({width, height, 1.0}));
    return {std::max(1, static_cast<int>(std::lround(width * scale))),
            std::max(1, static_cast<int>(std::lround(height * scale)))};
}

// White paper of four bytes a pixel, top row first, to draw on.
class Paper {
  public:
    explicit Paper(Size size) : size_(size), device_(CreateCompatibleDC(nullptr)) {
        BITMAPINFO info = {};
        info.bmiHeader = {
            sizeof(BITMAPINFOHEADER), size.width, -size.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        bitmap_.reset(CreateDIBSection(device_.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
        if (!device_ || !bitmap_) throw FileError(FileFault::NoMemory);
        bits_ = static_cast<const std::uint8_t*>(bits);
        std::memset(bits, 0xFF, row_bytes() * static_cast<std::size_t>(size.height));
        before_ = SelectObject(device_.get(), bitmap_.get());
    }
    ~Paper() {
        if (before_) SelectObject(device_.get(), before_);
    }
    Paper(const Paper&) = delete;
    Paper& operator=(const Paper&) = delete;

    HDC device() const { return device_.get(); }
    const std::uint8_t* row(int y) const {
        return bits_ + row_bytes() * static_cast<std::size_t>(y);
    }

  private:
    std::size_t row_bytes() const { return static_cast<std::size_t>(size_.width) * 4; }

    Size size_;
    Device device_;
    Bitmap bitmap_;
    const std::uint8_t* bits_ = nullptr;
    HGDIOBJ before_ = nullptr;
};

} // namespace

void read_ole_picture(IStream& stream, LONG size, UprightPicture& to) {
    ComPtr<IPicture> picture;
    if (FAILED(OleLoadPicture(&stream, size, FALSE, IID_PPV_ARGS(&picture))) || !picture)
        throw FileError(FileFault::UnknownFormat);
    const Extent extent = extent_of(*picture.Get());
    const Size pixels = size_in_pixels(extent);
    const Paper paper(pixels);
    // From the bottom up, as the picture's own coordinates run.
    throw_if_failed(picture->Render(paper.device(), 0, 0, pixels.width, pixels.height, 0,
                                    extent.height, extent.width, -extent.height, nullptr));
    GdiFlush();
    to.begin(pixels.width, pixels.height, 1);
    for (int y = 0; y < pixels.height; ++y)
        to.put_row(y, paper.row(y), kBgrx);
}

} // namespace kelvane
