// Arcs with fewer vertices.
#pragma once

#include "export/smooth_path.h"
#include "export/straight_pieces.h"

#include <cstdint>
#include <span>
#include <vector>

namespace kelvane {

/// On a large arc the lines of neighbouring pieces leave each other little room, so that vertices
/// often have to be put in between. This search looks for fewer edges from one end of such an arc
/// to the other, whatever the pieces: breadth first, edge by edge, keeping those vertices that are
/// reached furthest ahead. Then the vertices of the way found are moved to where the squared
/// distances between edges and path are least.
class ArcSearch {
  public:
    explicit ArcSearch(const Tube& tube) : tube_(tube) {}

    /// Replaces vertices from one end of a path to the other, found for `pieces`. `area` is what
    /// the edges have added, in halves of a square lattice step, and is updated.
    void run(const ExactPath& path, std::span<const StraightPiece> pieces,
             std::vector<SmoothVertex>& vertices, std::int64_t& area);

  private:
    using Index = ExactPath::Index;
    // Vertices are tried at every second row and column of the lattice.
    static constexpr std::int32_t kStep = 2;
    struct Reached {
        SmoothVertex vertex;
        std::uint32_t previous;
    };

    // A node near a vertex.
    struct Place {
        Index node;
        Sight ahead;                 // from the vertex before
        Sight back;                  // from the one behind
        PathMoments::Central before; // of the subpaths on both sides, seen from the node of the
        PathMoments::Central behind; // vertex before
    };

    bool shorten(const ExactPath& path, std::span<const SmoothVertex> arc, std::int64_t& area);
    bool find_chain(const ExactPath& path, const SmoothVertex& first, const SmoothVertex& last,
                    std::size_t most_edges);
    void collect_chain(std::size_t source, const SmoothVertex& last);
    bool look_ahead(const ExactPath& path, std::uint32_t source, const SmoothVertex& last);
    // Always with the node itself, in the middle.
    VertexGrid grid_around(LatticePoint node) const {
        return {node, tube_.vertex_reach() / kStep * kStep, kStep};
    }
    void reach(const ExactPath& path, const View& view, std::uint32_t source);
    void drop_nearest(std::size_t begin);
    void settle(const ExactPath& path, std::size_t index, std::int64_t& area);
    void find_places(const ExactPath& path, std::size_t index);

    const Tube tube_;
    std::vector<Reached> reached_;
    Index furthest_ = 0;                    // of the vertices reached with the edge at hand
    Index first_node_ = 0;                  // of the arc
    std::vector<std::uint64_t> reached_at_; // per node of the arc, the bits of its grid
    std::vector<View> views_;
    std::vector<Place> places_;
    std::vector<SmoothVertex> chain_;     // from one end of the arc to the other
    std::vector<SmoothVertex> shortened_; // the vertices with those of the arcs replaced
};

} // namespace kelvane
