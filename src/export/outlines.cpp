#include "export/outlines.h"

#include <array>

namespace kelvane {
namespace {

// One side adds two vertices, or a few more with bridges: a part is flushed at a side when it has
// come this far.
constexpr std::size_t kPartVertices = 1000;

} // namespace

void trace_rectangle(const Run& run, int y, OutlineReceiver& receiver) {
    const std::array<OutlineVertex, 4> corners{{{run.begin, y, false},
                                                {run.end, y, false},
                                                {run.end, y + 1, false},
                                                {run.begin, y + 1, false}}};
    receiver.begin_outline();
    receiver.add_vertices(corners);
    receiver.end_outline();
}

OutlineTracer::OutlineTracer(const RunList& runs, LinkedSides& sides, OutlineReceiver& receiver)
    : runs_(runs), sides_(sides), receiver_(receiver) {}

bool OutlineTracer::trace_next() {
    if (!find_start()) return false;
    receiver_.begin_outline();
    walk();
    receiver_.add_vertices(part_);
    receiver_.end_outline();
    part_.clear();
    return true;
}

bool OutlineTracer::find_start() {
    while (start_ < sides_.size() && sides_.visited(start_))
        ++start_;
    if (start_ == sides_.size()) return false;
    while (start_ >= left_side(runs_.row_begin(row_ + 1)))
        ++row_;
    return true;
}

void OutlineTracer::walk() {
    // Nothing of the outline lies lower or, in this row, further left: the foot of this side is
    // the start, and the way there is a corner.
    const bool starts_upwards = is_right(start_);
    if (starts_upwards) add_begin(start_, row_);
    SideIndex side = start_;
    int row = row_;
    do {
        const SideIndex next = sides_.next(side);
        pass_level(side, next, is_right(side) ? row + 1 : row);
        if (is_right(next) == is_right(side)) row += is_right(side) ? 1 : -1;
        sides_.mark_visited(side);
        side = next;
    } while (side != start_);
    if (starts_upwards) part_.pop_back(); // the foot has been reached again
}

// Along the grid line `y` from one side to the next.
void OutlineTracer::pass_level(SideIndex side, SideIndex next, std::int32_t y) {
    if (part_.size() > kPartVertices) flush_all_but_last();
    if (sides_.bridged(side)) {
        pass_bridges(side, next, y);
    } else if (sides_.x(side) != sides_.x(next)) {
        add_end(side, y);
        const bool ends_above_bridge = sides_.has_meetings() && pass_above_bridges(side, next, y);
        add_begin(next, y);
        part_.back().kept |= ends_above_bridge;
    }
}

// From one vertical edge to another there are two corners, or none where they are one.
void OutlineTracer::pass_bridges(SideIndex side, SideIndex next, std::int32_t y) {
    std::int32_t x = sides_.x(side);
    for (const Bridge& bridge : sides_.bridges_behind(side)) {
        if (bridge.from_x != x) {
            if (x == sides_.x(side))
                add_end(side, y);
            else
                add_kept(x, y);
            add_kept(bridge.from_x, y);
        }
        part_.push_back({bridge.from_x, y, true, true});
        add_kept(bridge.to_x, y);
        x = bridge.to_x;
    }
    if (sides_.x(next) == x) return;
    add_kept(x, y);
    add_begin(next, y);
}

// The ends of the strips below the edge: vertices of their own, or the ends of the edge. Tells
// whether the last strip reaches the end.
bool OutlineTracer::pass_above_bridges(SideIndex side, SideIndex next, std::int32_t y) {
    bool reaches_end = false;
    for (const Bridge& bridge : sides_.bridges_below(side)) {
        if (bridge.to_x == sides_.x(side))
            part_.back().kept = true;
        else
            add_kept(bridge.to_x, y);
        reaches_end = bridge.from_x == sides_.x(next);
        if (!reaches_end) add_kept(bridge.from_x, y);
    }
    return reaches_end;
}

// Where the outline leaves a side.
void OutlineTracer::add_end(SideIndex side, std::int32_t y) {
    const bool kept = sides_.has_meetings() && sides_.meets_at_end(side);
    part_.push_back({sides_.x(side), y, false, kept});
}

// Where it comes to a side.
void OutlineTracer::add_begin(SideIndex side, std::int32_t y) {
    const bool kept = sides_.has_meetings() && sides_.meets_at_begin(side);
    part_.push_back({sides_.x(side), y, false, kept});
}

void OutlineTracer::add_kept(std::int32_t x, std::int32_t y) {
    part_.push_back({x, y, false, true});
}

// The last vertex stays, because the end of the walk may take it back.
void OutlineTracer::flush_all_but_last() {
    const OutlineVertex last = part_.back();
    part_.pop_back();
    receiver_.add_vertices(part_);
    part_.assign(1, last);
}

} // namespace kelvane
