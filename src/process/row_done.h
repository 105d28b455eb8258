// How a filter hands over finished rows while they are still in the processor's cache.
#pragma once

#include "image/image_view.h"

#include <functional>

namespace kelvane {

/// Called for every row of the picture, ascending, once the filter writes nothing more to that row
/// of its target and reads nothing more from that row of its source. Borders count as rows too.
using RowDone = std::function<void(int y)>;

/// Where a filter writes its rows: a whole picture, or a ring of fewer rows that each serve
/// several in turn. Row y of a ring holds its content until row y + `rows` is written.
struct TargetRows {
    std::uint8_t* bits;
    std::ptrdiff_t row_step;
    int rows;

    TargetRows(const ImageView& whole) // NOLINT: any picture is a target
        : TargetRows(whole, whole.height) {}
    /// The ring is the picture's first `count` rows.
    TargetRows(const ImageView& picture, int count)
        : bits(picture.bits), row_step(picture.row_step), rows(count) {}
    std::uint8_t* row(int y) const { return bits + row_step * (y % rows); }
};

} // namespace kelvane
