#include "platform/paper.h"

#include "image/file_error.h"

#include <limits>

namespace kelvane {
namespace {

std::uint8_t on_white(int channel, int alpha) {
    return static_cast<std::uint8_t>((channel * alpha + 255 * (255 - alpha) + 127) / 255);
}

} // namespace

void put_on_white_paper(const std::uint8_t* top_row, std::ptrdiff_t row_step,
                        const PixelLayout& layout, cDIBSection& picture) {
    const ImageView view = picture.view();
    for (int y = 0; y < view.height; ++y) {
        const std::uint8_t* from = top_row + row_step * y;
        std::uint8_t* to = view.row(view.height - 1 - y);
        for (int x = 0; x < view.width; ++x, from += layout.bytes, to += 3) {
            const int alpha = layout.alpha < 0 ? 255 : from[layout.alpha];
            to[0] = on_white(from[layout.blue], alpha);
            to[1] = on_white(from[layout.green], alpha);
            to[2] = on_white(from[layout.red], alpha);
        }
    }
}

cDIBSection create_picture(std::int64_t width, std::int64_t height) {
    constexpr std::int64_t largest = std::numeric_limits<int>::max();
    if (width < 1 || height < 1) throw FileError("the picture has no pixels");
    cDIBSection picture;
    if (width > largest || height > largest ||
        !picture.Create(static_cast<int>(width), static_cast<int>(height)))
        throw FileError("the picture is too large");
    return picture;
}

} // namespace kelvane
