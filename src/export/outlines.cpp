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
    if (starts_upwards) add(sides_.x(start_), row_);
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
        add(sides_.x(side), y);
        add(sides_.x(next), y);
    }
}

void OutlineTracer::pass_bridges(SideIndex side, SideIndex next, std::int32_t y) {
    std::int32_t x = sides_.x(side);
    // From one vertical edge to another there are two corners, or none where they are one.
    const auto move_to = [&](std::int32_t to) {
        if (to == x) return;
        add(x, y);
        add(to, y);
    };
    for (const Bridge& bridge : sides_.bridges_behind(side)) {
        move_to(bridge.from_x);
        add(bridge.from_x, y, true);
        add(bridge.to_x, y);
        x = bridge.to_x;
    }
    move_to(sides_.x(next));
}

void OutlineTracer::add(std::int32_t x, std::int32_t y, bool bridge) {
    part_.push_back({x, y, bridge});
}

// The last vertex stays, because the end of the walk may take it back.
void OutlineTracer::flush_all_but_last() {
    const OutlineVertex last = part_.back();
    part_.pop_back();
    receiver_.add_vertices(part_);
    part_.assign(1, last);
}

} // namespace kelvane
