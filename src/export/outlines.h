// Outlines: closed chains of axis-parallel edges around runs or groups of joined runs.
#pragma once

#include "export/contacts.h"
#include "export/runs.h"

#include <vector>

namespace kelvane {

/// The start point of one edge, on the pixel grid lines.
struct OutlineVertex {
    std::int32_t x;
    std::int32_t y;
    /// The edge from here runs half a pixel lower than the vertices say, so that the polygon does
    /// not close a ring; the strip left out is a polygon of its own.
    bool bridge;

    friend bool operator==(const OutlineVertex&, const OutlineVertex&) = default;
};

/// A closed chain with the dark side on its left (anticlockwise around dark areas, clockwise
/// around holes). It starts at the left end of its lowest edge; no two edges in a row are collinear
/// once bridges are lowered. A bridge that begins or ends inside an edge is set between two
/// vertices in one place.
using Outline = std::vector<OutlineVertex>;

/// The rectangle around one run of row `y`.
void rectangle_outline(const Run& run, int y, Outline& outline);

/// Walks around the joined runs of a picture, one outline at a time.
///
/// The walk goes from one vertical side of a run to the next: up its right side, down its left
/// side. Each side belongs to exactly one outline, so all walks together cost one visit per side
/// and contact, and no walk needs memory beyond the outline it writes.
class OutlineTracer {
  public:
    OutlineTracer(const RunList& runs, const ContactMap& contacts);

    /// Fills `outline` with the next one, in order of its lowest, leftmost run; false after the
    /// last.
    bool next(Outline& outline);
    /// The run the next search starts from: how far the work has come.
    RunIndex position() const { return run_; }

  private:
    enum class Side : std::uint8_t { kLeft, kRight };
    /// One vertical side of a run; a walk comes down a left and up a right one.
    struct Station {
        RunIndex run;
        int row;
        Side side;
        friend bool operator==(const Station&, const Station&) = default;
    };

    bool find_start(Station& start);
    void mark(const Station& station);
    bool visited(const Station& station) const;

    Station after(const Station& station);
    Station after_right_side(RunIndex run, int row);
    Station after_left_side(RunIndex run, int row);
    Station along_top(RunIndex run, int row, RunIndex above_end);
    Station along_bottom(RunIndex run, int row, RunIndex below);

    void begin_level(std::int32_t x, std::int32_t y);
    void move_to(std::int32_t x);
    void bridge(std::int32_t from_x, std::int32_t to_x);

    const RunList& runs_;
    const ContactMap& contacts_;
    std::vector<std::uint8_t> visited_; // per run: bit 0 the left side, bit 1 the right side
    RunIndex run_ = 0;
    int row_ = 0;

    // The pen: where the walk stands on the current horizontal grid line.
    Outline* outline_ = nullptr;
    std::int32_t pen_x_ = 0;
    std::int32_t pen_y_ = 0;
    bool pen_written_ = false;
};

} // namespace kelvane
