// The walk over a picture in strips of columns, and its events.
#pragma once

#include "image/progress.h"

#include <algorithm>
#include <cstdint>

namespace kelvane {

/// Up to this many pixels a memory-bound operation is too short to need progress.
inline constexpr std::int64_t kQuickPixels = 16'000'000;
/// Number of strips, and so of visible progress steps, for larger pictures.
inline constexpr int kStrips = 8;
/// Pixels per strip where the row before is kept; it has to stay in the first-level cache.
inline constexpr int kNarrowStripPixels = 1024;

/// Columns of a strip for operations whose pixels carry nothing along. Whole rows stream best from
/// memory; strips of a large picture take up to twice as long.
inline int strip_pixels(int width, int height) {
    const bool quick = std::int64_t{width} * height <= kQuickPixels;
    return std::max(quick ? width : width / kStrips, 32);
}

/// Calls on_span(x, count, y) for `count` pixels from (x, y) until every pixel of the columns from
/// `first` on was visited once, and reports each column by its byte offset when it is finished.
/// Columns finish in ascending order, but walking one at a time would touch a cache line for three
/// bytes: the walk goes through strips of columns, rows ascending inside a strip of `strip` pixels,
/// the last one apart.
template <typename OnSpan>
void walk_columns(int first, int width, int height, const ProgressReporter& progress,
                  OnSpan on_span, int strip) {
    for (int x = first, count = 0; x < width; x += count) {
        count = std::min(strip, width - x);
        for (int y = 0; y < height; ++y)
            on_span(x, count, y);
        for (int column = x; column < x + count; ++column)
            progress.at(3L * column);
    }
}

/// The same in strips for a picture of this size.
template <typename OnSpan>
void walk_columns(int first, int width, int height, const ProgressReporter& progress,
                  OnSpan on_span) {
    walk_columns(first, width, height, progress, on_span, strip_pixels(width, height));
}

/// The walk of operations that carry errors from pixel to pixel, with its events: `diffusion` has a
/// member process_span(x, count, y).
template <typename Diffusion>
void walk_diffusion(Diffusion& diffusion, int width, int height, const ProgressReporter& progress) {
    progress.init(3L * width - 3);
    walk_columns(
        0, width, height, progress,
        [&](int x, int count, int y) { diffusion.process_span(x, count, y); }, kNarrowStripPixels);
    progress.complete();
}

/// Emits all events of an operation at once. For operations that do the work of two in one pass:
/// receivers expect the events of both.
inline void report_all_columns(int width, const ProgressReporter& progress) {
    progress.init(3L * width - 3);
    for (int column = 0; column < width; ++column)
        progress.at(3L * column);
    progress.complete();
}

} // namespace kelvane
