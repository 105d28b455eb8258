#include "process/geometry.h"

#include "process/geometry_rows.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace kelvane {
namespace {

// A tile's rows in source and target together stay in the processor's first cache.
constexpr int kTileColumns = 64;
constexpr int kTileRows = 64;

// The pixels of a rectangle that lies inside.
template <typename View> View part_of(View picture, const PixelRect& rect) {
    picture.bits = picture.pixel(rect.left, picture.height - rect.top - rect.height);
    picture.width = rect.width;
    picture.height = rect.height;
    return picture;
}

std::size_t row_bytes(int width) {
    return std::size_t{3} * static_cast<std::size_t>(width);
}

// Calls exchange(lower, upper) for every pair of rows, the middle one with itself.
template <typename Exchange>
void exchange_rows(ImageView image, ProgressObserver* observer, Exchange exchange) {
    const ProgressReporter progress(observer);
    const int pairs = (image.height + 1) / 2;
    progress.init(pairs - 1);
    for (int y = 0; y < pairs; ++y) {
        exchange(image.row(y), image.row(image.height - 1 - y));
        progress.at(y);
    }
    progress.complete();
}

// Pixel (x, y) becomes pixel (y, x).
void transpose(ConstImageView from, ImageView to, ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    const auto transpose_tile = geometry_rows().transpose;
    progress.init(from.height - 1);
    for (int y = 0; y < from.height; y += kTileRows) {
        const int rows = std::min(kTileRows, from.height - y);
        for (int x = 0; x < from.width; x += kTileColumns)
            transpose_tile(from.pixel(x, y), from.row_step, to.pixel(y, x), to.row_step,
                           std::min(kTileColumns, from.width - x), rows);
        for (int row = y; row < y + rows; ++row)
            progress.at(row);
    }
    progress.complete();
}

} // namespace

bool lies_inside(const PixelRect& rect, int width, int height) {
    return rect.left >= 0 && rect.top >= 0 && rect.width > 0 && rect.height > 0 &&
           rect.width <= width - rect.left && rect.height <= height - rect.top;
}

void Crop(ConstImageView from, const PixelRect& rect, ImageView to, int margin,
          ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    if (margin > 0)
        for (int y = 0; y < to.height; ++y)
            std::memset(to.row(y), 255, row_bytes(to.width));
    copy_pixels(part_of(from, rect), part_of(to, {margin, margin, rect.width, rect.height}));
    progress.complete();
}

void Mirror(ImageView image, ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    const auto reverse = geometry_rows().reverse;
    std::vector<std::uint8_t> row(row_bytes(image.width));
    progress.init(image.height - 1);
    for (int y = 0; y < image.height; ++y) {
        std::memcpy(row.data(), image.row(y), row.size());
        reverse(row.data(), image.row(y), image.width);
        progress.at(y);
    }
    progress.complete();
}

void Flip(ImageView image, ProgressObserver* observer) {
    exchange_rows(image, observer, [&](std::uint8_t* lower, std::uint8_t* upper) {
        if (lower != upper) std::swap_ranges(lower, lower + row_bytes(image.width), upper);
    });
}

void RotateHalf(ImageView image, ProgressObserver* observer) {
    const auto reverse = geometry_rows().reverse;
    std::vector<std::uint8_t> row(row_bytes(image.width));
    exchange_rows(image, observer, [&](std::uint8_t* lower, std::uint8_t* upper) {
        std::memcpy(row.data(), lower, row.size());
        if (lower != upper) reverse(upper, lower, image.width);
        reverse(row.data(), upper, image.width);
    });
}

void RotateRight(ConstImageView from, ImageView to, ProgressObserver* observer) {
    // Memory row y becomes column y, column x the x-th row from the top.
    to.bits = to.row(to.height - 1);
    to.row_step = -to.row_step;
    transpose(from, to, observer);
}

void RotateLeft(ConstImageView from, ImageView to, ProgressObserver* observer) {
    from.bits = from.row(from.height - 1);
    from.row_step = -from.row_step;
    transpose(from, to, observer);
}

} // namespace kelvane
