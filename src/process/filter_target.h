// Where a filter writes its results, and the callback that receives them while they are still in
// the processor's cache.
#pragma once

#include "image/image_view.h"

#include <functional>

namespace kelvane {

/// Called once for each part of the pixels that a filter computes, rows ascending: `filtered` holds
/// the `count` results for the place at byte offset `byte` of row y, a whole pixel first. The
/// filter reads nothing more from that place of its source.
using PartDone = std::function<void(int byte, int count, int y, const std::uint8_t* filtered)>;

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
