// Outlines: closed chains of axis-parallel edges around runs or groups of joined runs.
#pragma once

#include "export/linked_sides.h"
#include "export/runs.h"

#include <span>
#include <vector>

namespace kelvane {

/// The start point of one edge, on the pixel grid lines.
struct OutlineVertex {
    std::int32_t x;
    std::int32_t y;
    /// The edge from here runs half a pixel lower than the vertices say, so that the polygon does
    /// not close a ring; the strip left out is a polygon of its own.
    bool bridge = false;
    /// Smoothing has to leave the vertex where it is: outlines meet there, or it belongs to a
    /// bridge. Complete only when `LinkedSides` has found the meeting points.
    bool kept = false;
};

/// Takes outlines as they are found. One outline may wind through a whole picture, so it comes in
/// parts: `begin_outline`, its vertices in any number of calls, `end_outline`.
///
/// An outline is closed and has the dark side on its left: anticlockwise around dark areas,
/// clockwise around holes. It starts at the left end of its lowest edge, which is never a bridge
/// nor the edge behind one. With bridges lowered no two edges in a row are collinear; a bridge that
/// begins or ends inside an edge has two vertices in one place there.
///
/// With the meeting points known, there are vertices, kept ones, inside straight edges as well: at
/// the ends of the bridge strips below them.
class OutlineReceiver {
  public:
    virtual ~OutlineReceiver() = default;
    virtual void begin_outline() = 0;
    virtual void add_vertices(std::span<const OutlineVertex> vertices) = 0;
    virtual void end_outline() = 0;
};

/// Hands the rectangle around one run of row `y` to `receiver`.
void trace_rectangle(const Run& run, int y, OutlineReceiver& receiver);

/// Walks around joined runs, one outline at a time. Each side belongs to exactly one outline: all
/// walks together visit each side once.
class OutlineTracer {
  public:
    /// `sides` are those of `runs`; their visit marks are used up.
    OutlineTracer(const RunList& runs, LinkedSides& sides, OutlineReceiver& receiver);

    /// Hands over the next outline, in order of its lowest, leftmost run; false after the last.
    bool trace_next();
    /// The row that the search has reached.
    int row() const { return row_; }

  private:
    bool find_start();
    void walk();
    void pass_level(SideIndex side, SideIndex next, std::int32_t y);
    void pass_bridges(SideIndex side, SideIndex next, std::int32_t y);
    bool pass_above_bridges(SideIndex side, SideIndex next, std::int32_t y);
    void add_end(SideIndex side, std::int32_t y);
    void add_begin(SideIndex side, std::int32_t y);
    void add_kept(std::int32_t x, std::int32_t y);
    void flush_all_but_last();

    const RunList& runs_;
    LinkedSides& sides_;
    OutlineReceiver& receiver_;
    std::vector<OutlineVertex> part_; // of the outline, not yet handed over
    SideIndex start_ = 0;
    int row_ = 0;
};

} // namespace kelvane
