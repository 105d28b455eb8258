// Which runs of neighbouring rows touch, and which contacts join them into one outline.
#pragma once

#include "export/runs.h"

#include <vector>

namespace kelvane {

constexpr bool shares_columns(const Run& a, const Run& b) {
    return a.begin < b.end && b.begin < a.end;
}

/// The contacts between the runs of neighbouring rows, with a mark on those that join.
///
/// The runs that a run touches in the row above are neighbours in the run list, and so are those
/// below: a first index and a count tell them all.
class ContactMap {
  public:
    /// Which contacts carry the join mark.
    enum class Joining {
        /// As many as leave no ring: the outlines of a connected group of runs become one. Contacts
        /// with columns in common go first, so that corner contacts never cost a bridge.
        WithoutRings,
        /// All contacts with columns in common, so that holes keep outlines of their own; corner
        /// contacts as in WithoutRings.
        AllOverlaps,
    };

    /// Time and memory grow linearly with the runs. Reports the rows of `kPasses` passes, counted
    /// from 0 through all of them.
    static ContactMap find(const RunList& runs, Joining joining, const ProgressReporter& progress);
    static constexpr long kPasses = 3;

    /// First run that `run` touches in the row above; meaningless when it touches none.
    RunIndex first_above(RunIndex run) const { return entries_[run].first_above; }
    /// How many runs of the row above it touches.
    std::uint32_t count_above(RunIndex run) const {
        return entries_[run + 1].first_contact - entries_[run].first_contact;
    }
    /// First run of the row below that touches `run`, or `kNoRun`.
    RunIndex first_below(RunIndex run) const { return entries_[run].first_below; }
    /// Whether the contact of two touching runs joins them.
    bool joined(RunIndex lower, RunIndex upper) const {
        const Entry& entry = entries_[lower];
        return joined_[entry.first_contact + (upper - entry.first_above)];
    }

    static constexpr RunIndex kNoRun = 0xFFFFFFFF;

  private:
    struct Entry {
        std::uint32_t first_contact;
        RunIndex first_above;
        RunIndex first_below;
    };
    class Sets;

    void find_contacts_of_row(const RunList& runs, int y);
    void join(const RunList& runs, Joining joining, const ProgressReporter& progress);

    std::vector<Entry> entries_; // one per run and a last one that closes the contact numbering
    std::vector<bool> joined_;   // one per contact, sorted by lower, then upper run
};

} // namespace kelvane
