// Smooth outlines in place of the exact ones.
#pragma once

#include "export/outlines.h"
#include "export/piece_joints.h"
#include "export/smooth_path.h"
#include "export/straight_pieces.h"
#include "export/vertex_search.h"

#include <cstdint>
#include <span>
#include <vector>

namespace kelvane {

/// Stands between the tracer and the writer of outlines and replaces stairs by slanted edges that
/// are no further from them than a tolerance (smooth_path.h tells why the result is legal). Hands
/// the vertices on in lattice steps, a whole outline at a time.
///
/// Kept vertices stay where they are and split an outline into sections that are smoothed one by
/// one. Like an exact outline, a smooth one starts at the left end of its lowest edge: at its
/// lowest vertex, the leftmost of several.
///
/// The area within an outline changes by less than 1 % when it is larger than 50 pixels. The edges
/// may add or take 0.4 pixels, or 1/101 of the area. The area of an outline with kept vertices is
/// not known before its end: there, at the end of each section, it is 1/512 of the border's length
/// so far instead. (An area of n pixels has a border of 4 n at most.) A section that does not
/// achieve that is split anew into pieces that leave the vertices more room; if that does not help
/// either, it stays as it is.
class OutlineSmoother final : public OutlineReceiver {
  public:
    /// `radius` is the tolerance in parts of a lattice step, up to `Tube::kHalfPixel`.
    OutlineSmoother(std::int32_t radius, OutlineReceiver& receiver);

    void begin_outline() override;
    void add_vertices(std::span<const OutlineVertex> vertices) override;
    void end_outline() override;

  private:
    using Index = ExactPath::Index;

    void add_vertex(const OutlineVertex& vertex);
    void end_section(bool ring);
    bool smooth_section(StraightPieces& straight_pieces);
    bool smooth_ring(StraightPieces& straight_pieces);
    Index find_corner(StraightPieces& straight_pieces);
    SmoothVertex find_start();
    void start_pieces_at(Index start);
    bool shares_bend(std::size_t vertex, bool ring) const;
    void fill_path(bool ring);
    void turn_path(Index start);
    bool find_pieces(StraightPieces& straight_pieces, bool kept_ends);
    bool find_vertices(const SmoothVertex& first, const SmoothVertex& last, std::int64_t area);
    void add_smooth(LatticePoint vertex) { smooth_.push_back({vertex.x, vertex.y}); }
    void drop_collinear();
    void hand_over();

    OutlineReceiver& receiver_;
    const Tube tube_;
    StraightPieces longest_pieces_;
    StraightPieces roomy_pieces_; // their lines keep clear of the wall of the tube
    PieceJoints joints_;
    VertexSearch search_;

    // Of the outline at hand:
    bool lowered_ = false;            // the edge to the next vertex
    std::vector<LatticePoint> head_;  // what came before the first kept vertex
    std::vector<LatticePoint> exact_; // since the last kept vertex, with it
    bool any_kept_ = false;
    std::vector<OutlineVertex> smooth_;
    std::int64_t length_ = 0; // of the exact border so far, in lattice steps
    std::int64_t area_ = 0;   // added by the smooth edges, in halves of a square lattice step
    std::int64_t area_allowed_ = 0;

    // Of the section at hand:
    ExactPath path_;
    ExactPath turned_;
    std::vector<Index> ends_;
    std::vector<StraightPiece> pieces_;
};

} // namespace kelvane
