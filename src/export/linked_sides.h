// The vertical sides of all runs, linked in the order in which the outlines pass them.
#pragma once

#include "export/contacts.h"
#include "export/runs.h"

#include <cstdint>
#include <span>
#include <vector>

namespace kelvane {

/// Index of a vertical side: twice the run's index, plus 1 for its right side. Outlines keep the
/// dark pixels on their left, so they come down left sides and go up right ones.
using SideIndex = std::uint32_t;

constexpr SideIndex left_side(RunIndex run) {
    return 2 * run;
}
constexpr SideIndex right_side(RunIndex run) {
    return 2 * run + 1;
}
constexpr bool is_right(SideIndex side) {
    return side % 2 != 0;
}

/// A part of a run's top that a polygon passes half a pixel lower, so that it closes no ring.
struct Bridge {
    SideIndex behind;    // the side after which the outline meets it
    std::int32_t from_x; // its right end, met first
    std::int32_t to_x;
};

/// Whether to find the points in which outlines meet.
enum class MeetingPoints : bool { NotFound, Found };

/// For each side its column and the side that follows it. An outline goes from one to the other
/// along the grid line where the first ends and the second begins: the upper end of a right side,
/// the lower end of a left one. So it changes the row only from right to right side (one up) and
/// from left to left side (one down).
///
/// Made in one sweep from row to row, with its reads close together; walking an outline then reads
/// eight bytes a side, wherever it leads.
class LinkedSides {
  public:
    /// Links the sides of `runs` by the joining contacts. Bridges stand where a contact with
    /// columns in common does not join. Reports the rows of up to `kPasses` passes, counted on from
    /// those of `ContactMap::find`.
    LinkedSides(const RunList& runs, const ContactMap& contacts, MeetingPoints meetings,
                const ProgressReporter& progress);
    static constexpr long kPasses = 2;

    SideIndex size() const { return static_cast<SideIndex>(sides_.size()); }
    std::int32_t x(SideIndex side) const { return sides_[side].x; }
    SideIndex next(SideIndex side) const { return sides_[side].next & kIndexMask; }
    bool bridged(SideIndex side) const { return (sides_[side].next & kBridged) != 0; }
    /// The bridges between a bridged side and the next, from right to left.
    std::span<const Bridge> bridges_behind(SideIndex side) const;

    /// Whether the following three know anything.
    bool has_meetings() const { return !meetings_.empty(); }
    /// Whether two pixels meet diagonally in the point in which the outline comes to a side, or in
    /// which it leaves one.
    bool meets_at_begin(SideIndex side) const { return (meetings_[side] & kMeetsAtBegin) != 0; }
    bool meets_at_end(SideIndex side) const { return (meetings_[side] & kMeetsAtEnd) != 0; }
    /// The bridges below the bottom that the outline passes between a side and the next, from left
    /// to right; `behind` is this side.
    std::span<const Bridge> bridges_below(SideIndex side) const;

    bool visited(SideIndex side) const { return (sides_[side].next & kVisited) != 0; }
    void mark_visited(SideIndex side) { sides_[side].next |= kVisited; }

  private:
    // A picture of 2 GB has fewer than 2^30 sides; two bits are left for marks.
    static constexpr std::uint32_t kVisited = std::uint32_t{1} << 31;
    static constexpr std::uint32_t kBridged = std::uint32_t{1} << 30;
    static constexpr std::uint32_t kIndexMask = kBridged - 1;
    struct Side {
        std::int32_t x;
        std::uint32_t next;
    };
    static constexpr std::uint8_t kMeetsAtBegin = 1;
    static constexpr std::uint8_t kMeetsAtEnd = 2;
    static constexpr std::uint8_t kBridgesBelow = 4;
    class Linker;

    void find_corner_contacts(const RunList& runs, const ContactMap& contacts, RunIndex run);

    std::vector<Side> sides_;
    std::vector<Bridge> bridges_;        // sorted by side
    std::vector<std::uint8_t> meetings_; // marks per side; empty unless asked for
    std::vector<Bridge> bridges_below_;  // sorted by side
};

} // namespace kelvane
