#include "image/upright_picture.h"

#include "image/file_error.h"

#include <array>
#include <utility>

namespace kelvane {
namespace {

// How the file's pixels are read: mirrored along its rows or columns, rows turned into columns.
struct Turn {
    bool mirror_x;
    bool mirror_y;
    bool swap_axes;
};

Turn turn_of(int orientation) {
    constexpr std::array<Turn, 8> kTurns = {{{false, false, false},
                                             {true, false, false},
                                             {true, true, false},
                                             {false, true, false},
                                             {false, false, true},
                                             {false, true, true},
                                             {true, true, true},
                                             {true, false, true}}};
    if (orientation < 1 || orientation > 8) orientation = 1;
    return kTurns[static_cast<std::size_t>(orientation - 1)];
}

} // namespace

UprightPicture::UprightPicture(int width, int height, int orientation) : width_(width) {
    const Turn turn = turn_of(orientation);
    if (!picture_.Create(turn.swap_axes ? height : width, turn.swap_axes ? width : height))
        throw FileError(FileFault::kTooLarge);
    const ImageView view = picture_.view();
    right_ = 3;
    down_ = -view.row_step;
    if (turn.swap_axes) std::swap(right_, down_);
    origin_ = view.row(view.height - 1);
    if (turn.mirror_x) {
        origin_ += right_ * (width - 1);
        right_ = -right_;
    }
    if (turn.mirror_y) {
        origin_ += down_ * (height - 1);
        down_ = -down_;
    }
}

void UprightPicture::put_row(int y, const std::uint8_t* pixels, const PixelLayout& layout) {
    std::uint8_t* to = origin_ + down_ * y;
    for (int x = 0; x < width_; ++x, pixels += layout.bytes, to += right_) {
        const int alpha = layout.alpha < 0 ? 255 : pixels[layout.alpha];
        to[0] = on_white(pixels[layout.blue], alpha);
        to[1] = on_white(pixels[layout.green], alpha);
        to[2] = on_white(pixels[layout.red], alpha);
    }
}

} // namespace kelvane
