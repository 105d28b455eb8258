#include "export/linked_sides.h"

#include <algorithm>

namespace kelvane {

// Finds the side that follows a given one.
class LinkedSides::Linker {
  public:
    // `below` takes the bridges below bottoms; it may be null.
    Linker(const RunList& runs, const ContactMap& contacts, std::vector<Bridge>& bridges,
           std::vector<Bridge>* below)
        : runs_(runs), contacts_(contacts), bridges_(bridges), bridges_below_(below) {}

    SideIndex after_left(RunIndex run, int row);
    SideIndex after_right(RunIndex run, int row);

  private:
    SideIndex along_top(SideIndex from, RunIndex run, RunIndex above_end);
    SideIndex along_bottom(SideIndex from, RunIndex run, int row, RunIndex below);

    const RunList& runs_;
    const ContactMap& contacts_;
    std::vector<Bridge>& bridges_;
    std::vector<Bridge>* bridges_below_;
};

// Having come up the right side: on to the left along the top, unless a joined run above reaches
// further right.
SideIndex LinkedSides::Linker::after_right(RunIndex run, int row) {
    const Run& here = runs_[run];
    RunIndex above_end = contacts_.first_above(run) + contacts_.count_above(run);
    if (above_end > contacts_.first_above(run)) {
        const RunIndex last = above_end - 1;
        if (runs_[last].end > here.end && contacts_.joined(run, last))
            return along_bottom(right_side(run), last, row + 1, run + 1);
        if (runs_[last].begin == here.end) --above_end; // a corner that does not join
    }
    return along_top(right_side(run), run, above_end);
}

// Having come down the left side: on to the right along the bottom, unless a joined run below
// reaches further left.
SideIndex LinkedSides::Linker::after_left(RunIndex run, int row) {
    RunIndex below = contacts_.first_below(run);
    if (below != ContactMap::kNoRun && runs_[below].begin < runs_[run].begin) {
        if (contacts_.joined(below, run)) return along_top(left_side(run), below, run);
    }
    return along_bottom(left_side(run), run, row, below);
}

// To the left along the top of `run`, past the runs above that come before `above_end`.
SideIndex LinkedSides::Linker::along_top(SideIndex from, RunIndex run, RunIndex above_end) {
    const Run& here = runs_[run];
    const RunIndex above_begin = contacts_.first_above(run);
    while (above_end > above_begin) {
        const RunIndex above = --above_end;
        if (contacts_.joined(run, above)) return right_side(above);
        // Only the columns in common are lowered, never more of the top: its end may be a corner
        // contact, where a lowered edge would run along the outline's way up to the corner.
        if (shares_columns(here, runs_[above]))
            bridges_.push_back({from, std::min(here.end, runs_[above].end),
                                std::max(here.begin, runs_[above].begin)});
    }
    return left_side(run);
}

// To the right along the bottom of `run` in `row`, past the runs below from `below` on. A bridge is
// the lower run's matter: this edge runs straight on above it.
SideIndex LinkedSides::Linker::along_bottom(SideIndex from, RunIndex run, int row, RunIndex below) {
    if (below == ContactMap::kNoRun) return right_side(run);
    const Run& here = runs_[run];
    const RunIndex below_end = runs_.row_begin(row);
    for (; below < below_end && runs_[below].begin <= here.end; ++below) {
        if (contacts_.joined(below, run)) return left_side(below);
        if (bridges_below_ && shares_columns(here, runs_[below]))
            bridges_below_->push_back({from, std::min(here.end, runs_[below].end),
                                       std::max(here.begin, runs_[below].begin)});
    }
    return right_side(run);
}

LinkedSides::LinkedSides(const RunList& runs, const ContactMap& contacts, MeetingPoints meetings,
                         const ProgressReporter& progress) {
    const long rows_before = ContactMap::kPasses * runs.rows();
    const bool with_meetings = meetings == MeetingPoints::Found;
    sides_.reserve(std::size_t{runs.size()} * 2);
    Linker linker(runs, contacts, bridges_, with_meetings ? &bridges_below_ : nullptr);
    const auto link = [this](std::int32_t x, auto find_next) {
        const std::size_t bridges_before = bridges_.size();
        const SideIndex next = find_next();
        sides_.push_back({x, next | (bridges_.size() > bridges_before ? kBridged : 0)});
    };
    for (int y = 0; y < runs.rows(); ++y) {
        for (RunIndex run = runs.row_begin(y); run < runs.row_begin(y + 1); ++run) {
            link(runs[run].begin, [&] { return linker.after_left(run, y); });
            link(runs[run].end, [&] { return linker.after_right(run, y); });
        }
        progress.at(rows_before + y);
    }
    if (!with_meetings) return;
    meetings_.assign(sides_.size(), 0);
    for (int y = 0; y < runs.rows(); ++y) {
        for (RunIndex run = runs.row_begin(y); run < runs.row_begin(y + 1); ++run)
            find_corner_contacts(runs, contacts, run);
        progress.at(rows_before + runs.rows() + y);
    }
    for (const Bridge& bridge : bridges_below_)
        meetings_[bridge.behind] |= kBridgesBelow;
}

// Those of a run with the row above.
void LinkedSides::find_corner_contacts(const RunList& runs, const ContactMap& contacts,
                                       RunIndex run) {
    const RunIndex above_begin = contacts.first_above(run);
    const RunIndex above_end = above_begin + contacts.count_above(run);
    for (RunIndex above = above_begin; above < above_end; ++above) {
        if (runs[run].end == runs[above].begin) {
            meetings_[right_side(run)] |= kMeetsAtEnd;
            meetings_[left_side(above)] |= kMeetsAtEnd;
        } else if (runs[above].end == runs[run].begin) {
            meetings_[left_side(run)] |= kMeetsAtBegin;
            meetings_[right_side(above)] |= kMeetsAtBegin;
        }
    }
}

namespace {

std::span<const Bridge> bridges_of(const std::vector<Bridge>& bridges, SideIndex side) {
    const auto first = std::lower_bound(
        bridges.begin(), bridges.end(), side,
        [](const Bridge& bridge, SideIndex wanted) { return bridge.behind < wanted; });
    const auto last = std::find_if(first, bridges.end(),
                                   [&](const Bridge& bridge) { return bridge.behind != side; });
    return {first, last};
}

} // namespace

std::span<const Bridge> LinkedSides::bridges_behind(SideIndex side) const {
    if (!bridged(side)) return {};
    return bridges_of(bridges_, side);
}

std::span<const Bridge> LinkedSides::bridges_below(SideIndex side) const {
    if ((meetings_[side] & kBridgesBelow) == 0) return {};
    return bridges_of(bridges_below_, side);
}

} // namespace kelvane
