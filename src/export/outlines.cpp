#include "export/outlines.h"

#include <algorithm>

namespace kelvane {

void rectangle_outline(const Run& run, int y, Outline& outline) {
    outline.assign({{run.begin, y, false},
                    {run.end, y, false},
                    {run.end, y + 1, false},
                    {run.begin, y + 1, false}});
}

OutlineTracer::OutlineTracer(const RunList& runs, const ContactMap& contacts)
    : runs_(runs), contacts_(contacts), visited_(runs.size(), 0) {}

bool OutlineTracer::next(Outline& outline) {
    Station start{};
    if (!find_start(start)) return false;
    outline.clear();
    outline_ = &outline;
    // Nothing of the outline lies lower or, in this row, further left: its first edge leaves the
    // foot of this side to the right.
    if (start.side == Side::kRight) outline.push_back({runs_[start.run].end, start.row, false});
    Station station = start;
    do {
        mark(station);
        station = after(station);
    } while (station != start);
    if (start.side == Side::kRight) outline.pop_back(); // the foot has been reached again
    return true;
}

bool OutlineTracer::find_start(Station& start) {
    for (; run_ < runs_.size(); ++run_) {
        while (run_ >= runs_.row_begin(row_ + 1))
            ++row_;
        for (const Side side : {Side::kLeft, Side::kRight}) {
            start = {run_, row_, side};
            if (!visited(start)) return true;
        }
    }
    return false;
}

void OutlineTracer::mark(const Station& station) {
    visited_[station.run] |= station.side == Side::kLeft ? 1 : 2;
}

bool OutlineTracer::visited(const Station& station) const {
    return (visited_[station.run] & (station.side == Side::kLeft ? 1 : 2)) != 0;
}

OutlineTracer::Station OutlineTracer::after(const Station& station) {
    return station.side == Side::kRight ? after_right_side(station.run, station.row)
                                        : after_left_side(station.run, station.row);
}

// Having come up the right side: on to the left along the top, unless a joined run above reaches
// further right.
OutlineTracer::Station OutlineTracer::after_right_side(RunIndex run, int row) {
    const Run& here = runs_[run];
    begin_level(here.end, row + 1);
    const RunIndex above_begin = contacts_.first_above(run);
    RunIndex above_end = above_begin + contacts_.count_above(run);
    if (above_end > above_begin) {
        const RunIndex last = above_end - 1;
        if (runs_[last].end > here.end && contacts_.joined(run, last))
            return along_bottom(last, row + 1, run + 1);
        if (runs_[last].begin == here.end) --above_end; // a corner that does not join
    }
    return along_top(run, row, above_end);
}

// Having come down the left side: on to the right along the bottom, unless a joined run below
// reaches further left.
OutlineTracer::Station OutlineTracer::after_left_side(RunIndex run, int row) {
    const Run& here = runs_[run];
    begin_level(here.begin, row);
    RunIndex below = contacts_.first_below(run);
    if (below != ContactMap::kNoRun && runs_[below].begin < here.begin) {
        if (contacts_.joined(below, run)) return along_top(below, row - 1, run);
        ++below;
    }
    return along_bottom(run, row, below);
}

// To the left along the top of `run`, past the runs above that come before `above_end`.
OutlineTracer::Station OutlineTracer::along_top(RunIndex run, int row, RunIndex above_end) {
    const Run& here = runs_[run];
    const RunIndex above_begin = contacts_.first_above(run);
    while (above_end > above_begin) {
        const RunIndex above = --above_end;
        if (contacts_.joined(run, above)) {
            move_to(runs_[above].end);
            return {above, row + 1, Side::kRight};
        }
        if (shares_columns(here, runs_[above]))
            bridge(std::min(here.end, runs_[above].end), std::max(here.begin, runs_[above].begin));
    }
    move_to(here.begin);
    return {run, row, Side::kLeft};
}

// To the right along the bottom of `run`, past the runs below from `below` on. A bridge is the
// lower run's matter: this edge runs straight on above it.
OutlineTracer::Station OutlineTracer::along_bottom(RunIndex run, int row, RunIndex below) {
    const Run& here = runs_[run];
    if (below != ContactMap::kNoRun) {
        const RunIndex row_end = runs_.row_begin(row);
        for (; below < row_end && runs_[below].begin <= here.end; ++below) {
            if (contacts_.joined(below, run)) {
                move_to(runs_[below].begin);
                return {below, row - 1, Side::kLeft};
            }
        }
    }
    move_to(here.end);
    return {run, row, Side::kRight};
}

// A vertical side has reached the grid line `y`; whether there is a corner shows at the next move.
void OutlineTracer::begin_level(std::int32_t x, std::int32_t y) {
    pen_x_ = x;
    pen_y_ = y;
    pen_written_ = false;
}

// Along the grid line to where the next vertical side or bridge begins.
void OutlineTracer::move_to(std::int32_t x) {
    if (x == pen_x_) return;
    if (!pen_written_) outline_->push_back({pen_x_, pen_y_, false});
    outline_->push_back({x, pen_y_, false});
    pen_x_ = x;
    pen_written_ = true;
}

void OutlineTracer::bridge(std::int32_t from_x, std::int32_t to_x) {
    move_to(from_x);
    outline_->push_back({from_x, pen_y_, true});
    outline_->push_back({to_x, pen_y_, false});
    pen_x_ = to_x;
    pen_written_ = false;
}

} // namespace kelvane
