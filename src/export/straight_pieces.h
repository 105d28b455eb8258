// Splits an exact path into the longest pieces that straight lines can follow.
#pragma once

#include "export/fitted_line.h"
#include "export/separating_lines.h"
#include "export/smooth_path.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace kelvane {

/// A part of a path and the line that follows it.
struct StraightPiece {
    ExactPath::Index begin;
    ExactPath::Index end;
    FittedLine line; // normalised, the normal to the left of the way
    double length;   // along the path
    // At the end of a bar, a line at right angles to its sides; whether `line` is that.
    std::optional<FittedLine> across = std::nullopt;
    bool squared = false;
};

/// Finds the fewest pieces, and of several ways the one with the least squared distances between
/// the path and the lines of best fit (dynamic programming as in potrace's optimal polygons). A
/// piece is a straight part of the path, or one that a line follows:
///
/// - some line passes all its hinges on their proper sides (a digital straight segment);
/// - the middle one of these lines passes close to both ends, or with few steps the line of best
///   fit does, so that the lines of neighbouring pieces meet near by and the edges between take
///   little or no area away: a long run and the first step of a rise are no slope;
/// - there are steps enough to tell a slope from a detail of one pixel.
class StraightPieces {
  public:
    explicit StraightPieces(const Tube& tube) : tube_(tube) {}

    /// The ends of the pieces, the first and the last node among them. Nothing moves a kept end
    /// from its node, so lines have to pass it closer.
    void split(const ExactPath& path, bool kept_ends, std::vector<ExactPath::Index>& ends);
    /// The end of the longest piece that begins in a node other than the last.
    ExactPath::Index longest_from(const ExactPath& path, ExactPath::Index begin);
    /// The line for the piece between two ends: that of best fit, or, when it comes too close to
    /// the wall of the tube, the middle one of all that pass.
    StraightPiece piece(const ExactPath& path, ExactPath::Index begin, ExactPath::Index end);

    /// No piece has more nodes: what bounds the time by a multiple of the path's nodes. Longer
    /// lines would hardly find vertices on the lattice anyway.
    static constexpr ExactPath::Index kMostNodes = 250;

  private:
    using Index = ExactPath::Index;
    struct Best {
        std::uint32_t pieces;
        Index previous;
        double residual;
    };
    class Growth;

    void extend_from(const ExactPath& path, Index begin, bool kept_ends);
    bool serves(const ExactPath& path, Growth& growth, Index begin, bool kept_ends) const;

    const Tube tube_;
    SeparatingLines lines_{kMostNodes};
    std::vector<Best> best_; // per node: the best way there
};

} // namespace kelvane
