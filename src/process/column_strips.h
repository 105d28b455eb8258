// The walk of operations whose pixels do not look at their neighbours.
#pragma once

#include "image/progress.h"

#include <algorithm>

namespace kelvane {

/// Pixels per strip. Whole rows of all but very large pictures: memory streams best that way, and
/// operations without a look at the neighbours are over before anyone waits for their progress.
inline constexpr int kStripPixels = 4096;
/// For those that carry the row before along, which is to stay near the processor.
inline constexpr int kNarrowStripPixels = 1024;

/// Calls stretch(x, count, y) for `count` pixels from (x, y) until every pixel of the columns
/// from `first` on was met once, and reports each column by its byte offset when it is finished.
/// Columns finish in ascending order, but walking one at a time would touch a cache line for
/// three bytes: the walk goes through strips of columns, rows ascending inside a strip of
/// `strip` pixels, the last one apart.
template <typename Stretch>
void walk_columns(int first, int width, int height, const ProgressReporter& progress,
                  Stretch stretch, int strip = kStripPixels) {
    for (int x = first; x < width; x += strip) {
        const int count = std::min(strip, width - x);
        for (int y = 0; y < height; ++y)
            stretch(x, count, y);
        for (int column = x; column < x + count; ++column)
            progress.at(3L * column);
    }
}

/// The walk of operations that carry errors from pixel to pixel, with its events: `diffusion` has a
/// member stretch(x, count, y).
template <typename Diffusion>
void walk_diffusion(Diffusion& diffusion, int width, int height, const ProgressReporter& progress) {
    progress.init(3L * width - 3);
    walk_columns(
        0, width, height, progress,
        [&](int x, int count, int y) { diffusion.stretch(x, count, y); }, kNarrowStripPixels);
    progress.complete();
}

/// The events of an operation that another one does along with its own work: nothing is left to
/// wait for, and yet receivers count on both.
inline void report_all_columns(int width, const ProgressReporter& progress) {
    progress.init(3L * width - 3);
    for (int column = 0; column < width; ++column)
        progress.at(3L * column);
    progress.complete();
}

} // namespace kelvane
