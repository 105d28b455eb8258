// What an export draws on the board, in numbers that its user knows: sizes, the thinnest line, and
// what the board maker or EAGLE may trip over. The dialog tells it before an export, the command
// line after it.
#pragma once

#include "export/bit_picture.h"
#include "export/export_options.h"
#include "export/vectorize.h"
#include "export/width_check.h"
#include "image/image_view.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace kelvane {

/// What board makers print, in millimetres. 0 turns a check off.
struct BoardLimits {
    double line_mm = .15;
    double gap_mm = .15;
};

/// In pixels, from the lower left corner of the picture. All 0 without ink.
struct InkBox {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};

/// The most serious ones first.
enum class BoardWarning {
    NoPixelSize, ///< a pixel has the size 0: all is drawn in one point
    NothingDark,
    ThinLines,
    ThinGaps,
    OutlineLayer, ///< the board's outline, which is milled
    NotMirrored,  ///< a layer seen from below, and the picture is not mirrored
    ManyObjects,  ///< more than `kMostObjects`
};

/// Beyond this number of objects EAGLE takes minutes to draw.
inline constexpr std::uint64_t kMostObjects = 20000;

/// Lines or gaps.
struct BoardWidths {
    /// In pixels. Of those below the limit the thinnest is `places.thinnest`, which also says where
    /// it is; its pixels are `places.too_thin`.
    WidthReport places;
    /// Nothing when it was not looked for, or when there is none.
    std::optional<double> thinnest_mm;
};

struct BoardReport {
    double picture_width_mm = 0;
    double picture_height_mm = 0;
    InkBox ink;
    double ink_width_mm = 0;
    double ink_height_mm = 0;
    /// Polygons with their strips, wires or rectangles; see `add_objects`.
    std::uint64_t objects = 0;
    BoardWidths lines;
    BoardWidths gaps;
    /// In order, each at most once.
    std::vector<BoardWarning> warnings;
};

/// What `check_board` is asked.
struct BoardQuestion {
    ExportOptions options;
    BoardLimits limits;
    /// The picture's writing is reversed, as bottom layers want it.
    bool mirrored = false;
    /// Look for the thinnest line and gap when none is below its limit, too: up to twice as wide
    /// as the picture's shorter side for lines, up to eight times the limit for gaps. Wider lines
    /// tell how bold the drawing is, wider gaps only that its parts stand apart. Takes the time of
    /// several checks.
    bool measures = false;
};

/// Examines the picture that an export traces, already reduced to black and white. A limit that is
/// no more than a pixel is kept by every picture. Throws `std::bad_alloc`.
BoardReport check_board(ConstImageView reduced, const BoardQuestion& question);

// `check_board` in parts, for those who show the first while they wait for the others:

/// All but lines, gaps, objects and warnings. `drawn` has the pixels that are drawn.
BoardReport board_sizes(const BitPicture& drawn, const BoardQuestion& question);
/// Lines or gaps. Reports as `check_widths` does. Throws `std::bad_alloc`.
BoardWidths board_widths(const BitPicture& drawn, WidthOf what, const BoardQuestion& question,
                         ProgressObserver* observer = nullptr);
/// Adds the warnings that follow from the rest of the report, but for the one of `add_objects`.
void add_warnings(BoardReport& report, const BoardQuestion& question);

/// Adds the number of objects, known from `Vectorize` or `CountExport`, and its warning.
void add_objects(BoardReport& report, const ExportReport& counts);

} // namespace kelvane
