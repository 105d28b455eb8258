// The walk of the neighbourhood filters over a picture, and its events.
#pragma once

#include "image/image_view.h"
#include "image/progress.h"
#include "process/filter_rows.h"
#include "process/row_done.h"

#include <algorithm>

namespace kelvane {

/// How the walk goes. Users see columns finish in ascending order, but a column at a time would
/// touch a cache line for three bytes: both walks go row by row, `Strips` inside strips of
/// neighbouring columns, so that a slow operation shows its progress, `WholeRows` across the
/// picture, for operations that run at the speed of memory and would be held up by short rows.
enum class Walk { Strips, WholeRows };

/// Asks for bytes that will be read soon; processors foresee a row's end badly.
inline void prefetch(const std::uint8_t* bytes, int count) {
    constexpr int line = 64;
    for (int k = 0; k < count; k += line)
        __builtin_prefetch(bytes + k);
}

/// Calls stretch(byte, count, y) for `count` bytes, kLongestStretch at most, from byte offset
/// `byte` of row y until every pixel of the picture that is at least `half` pixels away from all
/// borders was met once.
template <typename Stretch>
void walk_interior(const ConstImageView& picture, int half, Walk walk,
                   const ProgressReporter& progress, const RowDone& row_done, Stretch stretch) {
    const int end = 3 * (picture.width - half);
    const bool whole_rows = walk == Walk::WholeRows;
    int rows_done = 0;
    const auto finish_rows = [&](int until) {
        if (!row_done) return;
        for (; rows_done < until; ++rows_done)
            row_done(rows_done);
    };
    progress.init(end - 3);
    for (int begin = 3 * half, next = 0; begin < end; begin = next) {
        next = whole_rows ? end : std::min(begin + kLongestStretch, end);
        for (int y = half; y < picture.height - half; ++y) {
            // The last row met stands in for the one after it.
            const std::uint8_t* upcoming = picture.row(std::min(y + half + 1, picture.height - 1));
            for (int byte = begin; byte < next; byte += kLongestStretch) {
                const int count = std::min(kLongestStretch, next - byte);
                prefetch(upcoming + byte, count);
                stretch(byte, count, y);
            }
            if (whole_rows) finish_rows(y - half + 1);
        }
        for (int x = begin; x < next; x += 3)
            progress.at(x);
    }
    finish_rows(picture.height);
    progress.complete();
}

} // namespace kelvane
