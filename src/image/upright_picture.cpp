#include "image/upright_picture.h"

#include "base/file_error.h"

#include <algorithm>
#include <array>
#include <cstring>
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

// `shown` makes a channel of the picture from one of the file and the pixel's alpha.
template <class Shown>
void put_pixels(std::uint8_t* to, std::ptrdiff_t step, const std::uint8_t* from, int count,
                const PixelLayout& layout, Shown shown) {
    for (int x = 0; x < count; ++x, from += layout.bytes, to += step) {
        const int alpha = layout.alpha < 0 ? 255 : from[layout.alpha];
        to[0] = shown(from[layout.blue], alpha);
        to[1] = shown(from[layout.green], alpha);
        to[2] = shown(from[layout.red], alpha);
    }
}

} // namespace

void UprightPicture::begin(int width, int height, int orientation) {
    if (!placement_) return turn(width, height, orientation);
    create(placement_->canvas_width, placement_->canvas_height);
    const ImageView view = picture_.view();
    std::memset(view.row(0), 255,
                static_cast<std::size_t>(view.row_step) * static_cast<std::size_t>(view.height));
    columns_ = std::clamp(view.width - placement_->left, 0, width);
    rows_ = columns_ > 0 ? std::clamp(view.height - placement_->top, 0, height) : 0;
    if (rows_ == 0) return;
    right_ = 3;
    down_ = -view.row_step;
    origin_ = view.pixel(placement_->left, view.height - 1 - placement_->top);
}

void UprightPicture::create(int width, int height) {
    if (!cDIBSection::fits(width, height)) throw FileError(FileFault::TooLarge);
    if (!picture_.Create(width, height)) throw FileError(FileFault::NoMemory);
}

void UprightPicture::turn(int width, int height, int orientation) {
    const Turn turn = turn_of(orientation);
    create(turn.swap_axes ? height : width, turn.swap_axes ? width : height);
    const ImageView view = picture_.view();
    columns_ = width;
    rows_ = height;
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
    if (y >= rows_) return;
    std::uint8_t* const to = origin_ + down_ * y;
    if (transparency_ == Transparency::Ink)
        put_pixels(to, right_, pixels, columns_, layout, [this](int, int alpha) {
            met_transparency_ |= alpha < 255;
            return static_cast<std::uint8_t>(255 - alpha);
        });
    else
        put_pixels(to, right_, pixels, columns_, layout,
                   layout.premultiplied ? premultiplied_on_white : on_white);
}

} // namespace kelvane
