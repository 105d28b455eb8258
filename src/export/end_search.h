// Edges at right angles to bars at their ends.
#pragma once

#include "export/fitted_line.h"
#include "export/smooth_path.h"
#include "export/straight_pieces.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace kelvane {

/// The edge at the end of a bar (square_ends.h) may miss its direction, since the long edges of the
/// sides reach few vertices of the lattice. This search looks at all vertices near both corners for
/// an edge that has the direction. It is joined to the vertices on the sides directly or across one
/// more vertex at each corner where that must be.
class EndSearch {
  public:
    explicit EndSearch(const Tube& tube) : tube_(tube) {}

    /// Replaces vertices from one end of a path to the other, found for `pieces`; the first and the
    /// last stay. `area` is what the edges have added, in halves of a square lattice step, and is
    /// updated.
    void run(const ExactPath& path, std::span<const StraightPiece> pieces,
             std::vector<SmoothVertex>& vertices, std::int64_t& area);

    /// Tells for each vertex whether it lies at the end of a bar.
    static void mark(std::span<const StraightPiece> pieces, std::span<const SmoothVertex> vertices,
                     std::vector<bool>& at_ends);

  private:
    using Index = ExactPath::Index;
    // What is seen at a node from an anchor, and the subpath between them, relative to the node of
    // the anchor.
    struct Prospect {
        View view;
        PathMoments::Central moments;
    };
    // From the anchor, a vertex that stays, to one of the edge looked for; they may be the same.
    struct Way {
        std::size_t anchor;
        std::optional<SmoothVertex> between;
        SmoothVertex vertex;
        double cost;
    };
    struct Best {
        const Way* to_edge = nullptr;
        const Way* from_edge = nullptr;
        double cost = 0;
        std::int64_t area = 0;
    };

    void square(const ExactPath& path, const StraightPiece& piece, std::int64_t& area);
    std::optional<std::size_t> edge_along(const StraightPiece& piece) const;
    void replace(std::size_t first, std::size_t last);
    void find_ways_to_edge(const ExactPath& path, const StraightPiece& piece, std::size_t edge,
                           bool across);
    void find_ways_from_edge(const ExactPath& path, const StraightPiece& piece, std::size_t edge,
                             bool across);
    void find_ways(const ExactPath& path, std::size_t anchor, Index nearest, Index furthest,
                   bool across, std::vector<Way>& ways);
    void look(const ExactPath& path, const SmoothVertex& from, Index nearest, Index furthest);
    const Prospect* prospect_at(Index node) const;
    bool find_vertex_between(const ExactPath& path, Way& way) const;
    Best find_edge(const ExactPath& path, const StraightPiece& piece, std::int64_t area);
    void offer(const ExactPath& path, const StraightPiece& piece, const Way& to_edge,
               const Way& from_edge, std::int64_t area, Best& best);
    void make_chain(const Way& to_edge, const Way& from_edge);

    const Tube tube_;
    std::vector<SmoothVertex> vertices_; // from the first to some behind the end at hand
    std::vector<Prospect> prospects_;    // at one node after another, away from the anchor
    std::vector<Way> to_edge_;
    std::vector<Way> from_edge_;
    std::vector<SmoothVertex> chain_; // from one anchor to the other
};

} // namespace kelvane
