#include "export/contacts.h"

#include <numeric>

namespace kelvane {

// Disjoint sets of runs (union-find with path halving; the lower index leads).
class ContactMap::Sets {
  public:
    explicit Sets(RunIndex count) : parent_(count) {
        std::iota(parent_.begin(), parent_.end(), RunIndex{0});
    }
    /// False when both are in one set already.
    bool unite(RunIndex a, RunIndex b) {
        a = leader(a);
        b = leader(b);
        if (a == b) return false;
        if (a < b)
            parent_[b] = a;
        else
            parent_[a] = b;
        return true;
    }

  private:
    RunIndex leader(RunIndex run) {
        while (parent_[run] != run) {
            parent_[run] = parent_[parent_[run]];
            run = parent_[run];
        }
        return run;
    }
    std::vector<RunIndex> parent_;
};

ContactMap ContactMap::find(const RunList& runs, Joining joining,
                            const ProgressReporter& progress) {
    ContactMap map;
    map.entries_.assign(std::size_t{runs.size()} + 1, {0, 0, kNoRun});
    for (int y = 0; y < runs.rows(); ++y) {
        map.find_contacts_of_row(runs, y);
        progress.at(y);
    }
    map.join(runs, joining, progress);
    return map;
}

// Both rows are sorted, so one sweep meets every contact: `above` never has to step back further
// than the last run that the previous run of this row touched.
void ContactMap::find_contacts_of_row(const RunList& runs, int y) {
    const bool last_row = y + 1 == runs.rows();
    RunIndex above = last_row ? runs.size() : runs.row_begin(y + 1);
    const RunIndex above_end = last_row ? above : runs.row_begin(y + 2);
    for (RunIndex run = runs.row_begin(y); run < runs.row_begin(y + 1); ++run) {
        while (above < above_end && runs[above].end < runs[run].begin)
            ++above;
        RunIndex touching = above;
        for (; touching < above_end && runs[touching].begin <= runs[run].end; ++touching)
            if (entries_[touching].first_below == kNoRun) entries_[touching].first_below = run;
        entries_[run].first_above = above;
        entries_[run + 1].first_contact = entries_[run].first_contact + (touching - above);
    }
}

void ContactMap::join(const RunList& runs, Joining joining, const ProgressReporter& progress) {
    joined_.assign(entries_.back().first_contact, false);
    Sets sets(runs.size());
    for (const bool corners : {false, true}) {
        const bool always = !corners && joining == Joining::AllOverlaps;
        for (int y = 0; y < runs.rows(); ++y) {
            for (RunIndex run = runs.row_begin(y); run < runs.row_begin(y + 1); ++run) {
                std::uint32_t contact = entries_[run].first_contact;
                RunIndex upper = entries_[run].first_above;
                for (; contact < entries_[run + 1].first_contact; ++contact, ++upper)
                    if (shares_columns(runs[run], runs[upper]) != corners)
                        joined_[contact] = sets.unite(run, upper) || always;
            }
            progress.at(y + (corners ? 2L : 1L) * runs.rows());
        }
    }
}

} // namespace kelvane
