// Where the lines of neighbouring pieces meet.
#pragma once

#include "export/smooth_path.h"
#include "export/straight_pieces.h"

#include <compare>
#include <vector>

namespace kelvane {

/// Moves the joints between pieces along the path to the corners of pixels next to which the lines
/// of neighbouring pieces meet, as far as each line still follows its piece.
class PieceJoints {
  public:
    explicit PieceJoints(const Tube& tube) : tube_(tube) {}

    /// Replaces `path` by one that has nodes at the new joints, and one pixel before and behind
    /// each; the pieces are numbered accordingly. Lines stay as they are. The ends of the path
    /// stay.
    void move(ExactPath& path, std::vector<StraightPiece>& pieces);

  private:
    using Index = ExactPath::Index;
    // A corner of pixels on the path, `offset` lattice steps behind the node `link`.
    struct Place {
        Index link;
        std::int32_t offset;
        friend auto operator<=>(const Place&, const Place&) = default;
    };

    bool step_forward(const ExactPath& path, Place& place) const;
    bool step_back(const ExactPath& path, Place& place) const;
    bool follows(const ExactPath& path, const StraightPiece& piece, Index corner) const;
    Place best_place(const ExactPath& path, const StraightPiece& before,
                     const StraightPiece& behind, Place lower_limit) const;
    void add_nodes(ExactPath& path, std::vector<StraightPiece>& pieces);

    const Tube tube_;
    std::vector<Place> joints_; // with both ends of the path
    std::vector<Place> nodes_;  // to be added, ascending
    ExactPath denser_;
};

} // namespace kelvane
