// Chooses the vertices of a smooth outline on the lattice.
#pragma once

#include "export/arc_search.h"
#include "export/end_search.h"
#include "export/smooth_path.h"
#include "export/straight_pieces.h"

#include <cstdint>
#include <span>
#include <vector>

namespace kelvane {

/// Of a few candidates near each joint of pieces, finds vertices whose edges all lie in the tube,
/// with the least squared distance between edges and path (dynamic programming). The area that the
/// edges have added or taken so far counts too, so that later ones give it back.
///
/// Where no edge is possible between the candidates next to the lines' common point, vertices
/// around the joint before from which edges lead both ways are tried, then others at the joint
/// ahead; after that, a single vertex is put in between, and if none serves, several.
///
/// Along arcs where vertices had to be put in, fewer are looked for (arc_search.h), and at the ends
/// of bars such as give them their direction (end_search.h).
class VertexSearch {
  public:
    explicit VertexSearch(const Tube& tube) : tube_(tube), arcs_(tube), ends_(tube) {}

    /// Candidates at the joint of two pieces: around the common point of their lines.
    void candidates(const ExactPath& path, const StraightPiece& before, const StraightPiece& behind,
                    std::vector<SmoothVertex>& found) const;

    /// Finds the vertices from one of `first`, at the beginning of `pieces`, to one of `last` at
    /// their end. `area` is what the edges before have added, in halves of a square lattice step,
    /// and is updated.
    void run(const ExactPath& path, std::span<const StraightPiece> pieces,
             std::span<const SmoothVertex> first, std::span<const SmoothVertex> last,
             std::int64_t& area);
    /// Moves vertices found by a few lattice steps where that makes up for `area` and their edges
    /// stay in the tube; at the ends of bars, whose directions it takes, only with `ends_too`.
    void make_up_for(const ExactPath& path, bool ends_too, std::int64_t& area);
    /// The vertices found, with the first and the last.
    std::span<const SmoothVertex> vertices() const { return vertices_; }

  private:
    using Index = ExactPath::Index;
    // A vertex with the best way to it.
    struct State {
        SmoothVertex vertex;
        std::uint32_t previous;
        double cost; // without that of the area
        std::int64_t area;
    };
    // The vertices that were reached at one place of the path, ascending by node.
    struct Layer {
        std::uint32_t begin;
        bool joint; // not put in between
    };
    // What edges from near one node to near another have in common.
    struct Span {
        Index to;
        bool straight;                // the path has one heading; it has two at most
        PathMoments::Central moments; // seen from the first node
        std::int64_t area;            // twice that between the path and the first node
    };

    struct Hinge {
        FinePoint at;
        Index corner;
        bool left_turn;
    };

    void reach(const ExactPath& path, std::span<const StraightPiece> pieces, std::size_t index,
               std::vector<SmoothVertex>& targets);
    bool advance(const ExactPath& path, std::span<const SmoothVertex> targets, bool joint);
    bool advance_over(const ExactPath& path, std::span<const SmoothVertex> between,
                      std::span<const SmoothVertex> targets, bool joint);
    void measure_spans(const ExactPath& path, Index from, std::span<const SmoothVertex> targets);
    void offer_edges(const ExactPath& path, std::uint32_t from);
    bool insert_common(const ExactPath& path, std::span<const SmoothVertex> targets);
    void insert(const ExactPath& path, const StraightPiece& piece, Index before);
    void widen(const ExactPath& path, const StraightPiece& before, const StraightPiece& behind,
               std::vector<SmoothVertex>& found) const;
    void add_candidates_between(const ExactPath& path, const StraightPiece& piece, Index node,
                                std::vector<SmoothVertex>& found) const;
    bool replace_joint(const ExactPath& path, const StraightPiece& before,
                       const StraightPiece& behind, std::span<const SmoothVertex> targets);
    void look_from_both_ends(const ExactPath& path, std::span<const State> sources,
                             std::span<const SmoothVertex> targets, Index first, Index last);
    void add_common_vertices(const ExactPath& path, Index node, std::vector<SmoothVertex>& found);
    bool move_vertices(const ExactPath& path, bool ends_too, std::int64_t& area);
    bool within_reach(LatticePoint vertex, LatticePoint node) const;
    std::span<const State> last_layer() const {
        return std::span(states_).subspan(layers_.back().begin);
    }

    const Tube tube_;
    ArcSearch arcs_;
    EndSearch ends_;
    std::vector<State> states_;
    std::vector<Layer> layers_;
    std::vector<State> reached_; // targets of the edges at hand
    std::vector<Span> spans_;    // to their nodes, ascending
    std::vector<Hinge> hinges_;  // of the corners on the way
    std::vector<View> forward_;  // from the vertices before a joint
    std::vector<View> backward_; // from those behind it
    std::vector<SmoothVertex> vertices_;
    std::vector<bool> at_ends_; // of bars, for each vertex
};

} // namespace kelvane
