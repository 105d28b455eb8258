#include "reduce/black_white.h"

#include "process/column_strips.h"
#include "reduce/reduce_rows.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <stdexcept>
#include <vector>

namespace kelvane {
namespace {

using Pixel = std::array<std::uint8_t, 3>;

void weigh_columns(ImageView source, ImageView destination, const DarkTest& dark,
                   const ProgressReporter& progress) {
    const auto weigh = reduce_rows().weigh;
    progress.init(3L * source.width - 3);
    walk_columns(0, source.width, source.height, progress, [&](int x, int count, int y) {
        weigh(source.pixel(x, y), destination.pixel(x, y), count, dark);
    });
}

// A grey of at most `limit` means a weighted sum below this; half way to the next grey rounds
// down only from an even one.
DarkTest dark_by_grey(int limit) {
    return {71, 707, 222, 1000 * limit + 500 + (limit % 2 == 0 ? 1 : 0)};
}

// Bounds of sum / count rounded with halves to even; thirds have no halves.
DarkTest dark_by_mean(int limit, Channels channels) {
    const int count = channels.blue + channels.green + channels.red;
    const int even = limit % 2 == 0 ? 1 : 0;
    const std::array<int, 3> bounds{limit + 1, 2 * limit + 1 + even, 3 * limit + 2};
    return {channels.blue, channels.green, channels.red,
            bounds.at(static_cast<std::size_t>(count - 1))};
}

// Packed colours differ by less than 2^24: a bound there is never reached.
int least_step(int limit) {
    const double cube = static_cast<double>(limit) * limit * limit;
    return static_cast<int>(std::clamp(cube, 0.0, 0x1p24));
}

// Original pixels of the source's first column; the walk then moves on through the strips.
std::vector<Pixel> first_column(ConstImageView source) {
    std::vector<Pixel> column(static_cast<std::size_t>(source.height));
    for (int y = 0; y < source.height; ++y)
        std::memcpy(column[static_cast<std::size_t>(y)].data(), source.row(y), 3);
    return column;
}

void copy_unwritten(ImageView destination, ImageView source) {
    if (destination.bits == source.bits) return;
    std::memcpy(source.row(0), destination.row(0), static_cast<std::size_t>(source.width) * 3);
    for (int y = 1; y < source.height; ++y)
        std::memcpy(source.row(y), destination.row(y), 3);
}

} // namespace

void BlackAndWhite(ImageView source, ImageView destination, int limit, ProgressObserver* observer) {
    // Weighted sums are compared directly, without a grey picture; receivers still expect
    // GrayScale's events.
    const ProgressReporter progress(observer);
    report_all_columns(source.width, ProgressReporter(observer));
    weigh_columns(source, destination, dark_by_grey(limit), progress);
    progress.complete();
}

void BlackAndWhite2(ImageView source, ImageView destination, int limit,
                    ProgressObserver* observer) {
    BlackAndWhite(source, destination, limit, observer);
}

void LineArt2(ImageView source, ImageView destination, int limit, Channels channels,
              ProgressObserver* observer) {
    if (!channels.any()) throw std::invalid_argument("no channel chosen");
    const ProgressReporter progress(observer);
    weigh_columns(source, destination, dark_by_mean(limit, channels), progress);
    progress.complete();
}

void EdgeDetect2(ImageView source, ImageView destination, int limit, ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    const auto edges = reduce_rows().edges;
    const int least = least_step(limit);
    std::vector<Pixel> left = first_column(source);
    progress.init(3L * source.width - 3);
    walk_columns(1, source.width, source.height, progress, [&](int x, int count, int y) {
        if (y == 0) return;
        edges(source.pixel(x, y), destination.pixel(x, y), count, least,
              left[static_cast<std::size_t>(y)].data());
    });
    copy_unwritten(destination, source);
    progress.complete();
}

} // namespace kelvane
