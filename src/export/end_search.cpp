#include "export/end_search.h"

#include "export/edge_cost.h"

#include <algorithm>
#include <cmath>

namespace kelvane {
namespace {

// An edge has the direction of the end when the sine of its angle is this at most, or its vertices
// differ by no more lattice steps.
constexpr double kSquareSine = .0085;
constexpr double kSquareOffset = 2;
// It runs along the end when the sine is this at most and its length this part of the end's.
constexpr double kMostSine = .3;
constexpr double kLeastPart = .7;

// How many nodes from the corners the vertices may lie, on the side and on the end.
constexpr ExactPath::Index kNodesOnSide = 6;
constexpr ExactPath::Index kNodesOnEnd = 5;
// Every second row and column of the lattice around a node is tried.
constexpr std::int32_t kStep = 2;
// An anchor is the vertex at the corner or up to so many before or behind it.
constexpr std::size_t kMostReplaced = 2;

// What a vertex more costs, and how much more an edge's direction counts than its place.
constexpr double kVertexCost = 10;
constexpr double kDirectionWeight = 16;

// The component along the end of the way between two points, in lattice steps.
double length_along(const StraightPiece& piece, LatticePoint from, LatticePoint to) {
    return (to.x - from.x) * piece.across->ny - (to.y - from.y) * piece.across->nx;
}
// How far the way between two points leads away from the direction of the end.
double offset_along(const StraightPiece& piece, LatticePoint from, LatticePoint to) {
    return std::abs(piece.across->offset(to) - piece.across->offset(from));
}
// How far at most an edge with the direction of the end leads away from it.
double square_offset(const ExactPath& path, const StraightPiece& piece) {
    return std::max(kSquareOffset,
                    kSquareSine * length_along(piece, path[piece.begin], path[piece.end]));
}

} // namespace

void EndSearch::run(const ExactPath& path, std::span<const StraightPiece> pieces,
                    std::vector<SmoothVertex>& vertices, std::int64_t& area) {
    const auto is_end = [](const StraightPiece& piece) { return piece.across.has_value(); };
    if (std::none_of(pieces.begin(), pieces.end(), is_end)) return;
    // Replacing happens at the end of `vertices_`, where it moves few others.
    vertices_.clear();
    std::size_t taken = 0;
    const auto take = [&] { vertices_.push_back(vertices[taken++]); };
    for (const StraightPiece& piece : pieces) {
        if (!is_end(piece)) continue;
        std::size_t beyond = 0;
        while (taken < vertices.size() && beyond <= kMostReplaced) {
            if (vertices[taken].node > piece.end + kNodesOnSide) ++beyond;
            take();
        }
        square(path, piece, area);
    }
    while (taken < vertices.size())
        take();
    std::swap(vertices, vertices_);
}

void EndSearch::mark(std::span<const StraightPiece> pieces, std::span<const SmoothVertex> vertices,
                     std::vector<bool>& at_ends) {
    at_ends.assign(vertices.size(), false);
    std::size_t vertex = 0;
    for (const StraightPiece& piece : pieces) {
        if (!piece.across) continue;
        while (vertex < vertices.size() && vertices[vertex].node + kNodesOnSide < piece.begin)
            ++vertex;
        for (; vertex < vertices.size() && vertices[vertex].node <= piece.end + kNodesOnSide;
             ++vertex)
            at_ends[vertex] = true;
    }
}

void EndSearch::square(const ExactPath& path, const StraightPiece& piece, std::int64_t& area) {
    const std::optional<std::size_t> edge = edge_along(piece);
    if (!edge) return;
    if (offset_along(piece, vertices_[*edge].at, vertices_[*edge + 1].at) <=
        square_offset(path, piece))
        return;
    for (const bool across : {false, true}) {
        find_ways_to_edge(path, piece, *edge, across);
        find_ways_from_edge(path, piece, *edge, across);
        if (const Best best = find_edge(path, piece, area); best.to_edge) {
            make_chain(*best.to_edge, *best.from_edge);
            area = best.area;
            replace(best.to_edge->anchor, best.from_edge->anchor);
            return;
        }
    }
}

// Replaces the vertices from one anchor to the other by the chain.
void EndSearch::replace(std::size_t first, std::size_t last) {
    const auto begin = vertices_.begin() + static_cast<std::ptrdiff_t>(first);
    const auto end = vertices_.begin() + static_cast<std::ptrdiff_t>(last) + 1;
    vertices_.insert(vertices_.erase(begin, end), chain_.begin(), chain_.end());
}

// The number of the longest edge along an end.
std::optional<std::size_t> EndSearch::edge_along(const StraightPiece& piece) const {
    std::optional<std::size_t> longest;
    double most = 0;
    const auto first =
        std::partition_point(vertices_.begin(), vertices_.end(), [&](const SmoothVertex& vertex) {
            return vertex.node + kNodesOnSide < piece.begin;
        });
    for (auto i = static_cast<std::size_t>(first - vertices_.begin()); i + 1 < vertices_.size();
         ++i) {
        const LatticePoint from = vertices_[i].at, to = vertices_[i + 1].at;
        if (vertices_[i + 1].node > piece.end + kNodesOnSide) break;
        const double length = length_along(piece, from, to);
        if (length > most && offset_along(piece, from, to) <= kMostSine * length) {
            most = length;
            longest = i;
        }
    }
    return longest;
}

void EndSearch::find_ways_to_edge(const ExactPath& path, const StraightPiece& piece,
                                  std::size_t edge, bool across) {
    to_edge_.clear();
    const Index furthest = std::min(piece.begin + kNodesOnEnd, (piece.begin + piece.end) / 2);
    for (std::size_t anchor = edge + 1; anchor-- > edge - std::min(edge, kMostReplaced);) {
        const SmoothVertex& vertex = vertices_[anchor];
        to_edge_.push_back({anchor, std::nullopt, vertex, 0});
        const Index nearest = piece.begin - std::min(piece.begin, kNodesOnSide);
        if (vertex.node < furthest)
            find_ways(path, anchor, std::max(nearest, vertex.node + 1), furthest, across, to_edge_);
    }
}

void EndSearch::find_ways_from_edge(const ExactPath& path, const StraightPiece& piece,
                                    std::size_t edge, bool across) {
    from_edge_.clear();
    const Index furthest =
        std::max(piece.end - std::min(piece.end, kNodesOnEnd), (piece.begin + piece.end) / 2 + 1);
    const std::size_t last = std::min(edge + 1 + kMostReplaced, vertices_.size() - 1);
    for (std::size_t anchor = edge + 1; anchor <= last; ++anchor) {
        const SmoothVertex& vertex = vertices_[anchor];
        from_edge_.push_back({anchor, std::nullopt, vertex, 0});
        const Index nearest = piece.end + kNodesOnSide;
        if (vertex.node > furthest)
            find_ways(path, anchor, std::min(nearest, vertex.node - 1), furthest, across,
                      from_edge_);
    }
}

// Adds the ways from an anchor to the vertices near the nodes from `nearest` to `furthest`, which
// lie ahead of it or behind: direct ones, or also those across one more vertex.
void EndSearch::find_ways(const ExactPath& path, std::size_t anchor, Index nearest, Index furthest,
                          bool across, std::vector<Way>& ways) {
    const SmoothVertex from = vertices_[anchor];
    const bool backwards = furthest < from.node;
    look(path, from, nearest, furthest);
    const LatticePoint origin = path[from.node];
    const Index nodes = backwards ? nearest - furthest : furthest - nearest;
    for (Index i = 0; i <= nodes; ++i) {
        const Index node = backwards ? nearest - i : nearest + i;
        const Prospect* const prospect = prospect_at(node);
        const VertexGrid grid(path[node], tube_.vertex_reach(), kStep);
        grid.for_each(grid.all(), [&](LatticePoint at) {
            Way way{anchor, std::nullopt, {at, node}, 0};
            if (prospect && prospect->view.sight.sees(at)) {
                way.cost = edge_cost(prospect->moments, from.at - origin, at - origin);
                ways.push_back(way);
            } else if (across && find_vertex_between(path, way)) {
                ways.push_back(way);
            }
        });
    }
}

// Finds what is seen from a vertex at the nodes from `nearest` to `furthest`.
void EndSearch::look(const ExactPath& path, const SmoothVertex& from, Index nearest,
                     Index furthest) {
    const bool backwards = furthest < from.node;
    const LatticePoint origin = path[from.node];
    prospects_.clear();
    Sight sight(from.at);
    PathMoments moments;
    for (Index node = from.node; node != furthest;) {
        const Index before = node;
        node = backwards ? node - 1 : node + 1;
        moments.add_link(path[before] - origin, path[node] - origin);
        if (backwards ? node <= nearest : node >= nearest)
            prospects_.push_back({{node, sight}, moments.central()});
        if (!sight.pass(tube_, path, node, backwards)) break;
    }
}

const EndSearch::Prospect* EndSearch::prospect_at(Index node) const {
    if (prospects_.empty()) return nullptr;
    const Index first = prospects_.front().view.node, last = prospects_.back().view.node;
    if (node < std::min(first, last) || node > std::max(first, last)) return nullptr;
    return &prospects_[node > first ? node - first : first - node];
}

// Finds the vertex across which the way costs least; false when there is none.
bool EndSearch::find_vertex_between(const ExactPath& path, Way& way) const {
    const SmoothVertex &from = vertices_[way.anchor], &to = way.vertex;
    const bool backwards = to.node < from.node;
    const LatticePoint origin = path[from.node];
    Sight sight(to.at);
    PathMoments moments;
    Index node = to.node;
    while (!prospects_.empty() && node != prospects_.front().view.node) {
        const Index before = node;
        node = backwards ? node + 1 : node - 1;
        moments.add_link(path[before] - origin, path[node] - origin);
        if (const Prospect* const prospect = prospect_at(node)) {
            const VertexGrid grid(path[node], tube_.vertex_reach(), kStep);
            const PathMoments::Central rest = moments.central();
            grid.for_each(prospect->view.sight.seen(grid) & sight.seen(grid), [&](LatticePoint at) {
                const double cost = kVertexCost +
                                    edge_cost(prospect->moments, from.at - origin, at - origin) +
                                    edge_cost(rest, at - origin, to.at - origin);
                if (way.between && way.cost <= cost) return;
                way.between = {at, node};
                way.cost = cost;
            });
        }
        if (!sight.pass(tube_, path, node, !backwards)) break;
    }
    return way.between.has_value();
}

// The best edge in the direction of the end between the vertices of two ways.
EndSearch::Best EndSearch::find_edge(const ExactPath& path, const StraightPiece& piece,
                                     std::int64_t area) {
    const double tolerance = square_offset(path, piece);
    const auto offset = [&](const Way& way) { return piece.across->offset(way.vertex.at); };
    std::stable_sort(from_edge_.begin(), from_edge_.end(),
                     [&](const Way& a, const Way& b) { return offset(a) < offset(b); });
    Best best;
    for (const Way& to_edge : to_edge_) {
        const double at = offset(to_edge);
        const auto first =
            std::partition_point(from_edge_.begin(), from_edge_.end(),
                                 [&](const Way& way) { return offset(way) < at - tolerance; });
        for (auto way = first; way != from_edge_.end() && offset(*way) <= at + tolerance; ++way)
            offer(path, piece, to_edge, *way, area, best);
    }
    return best;
}

// Offers the edge between the ends of two ways.
void EndSearch::offer(const ExactPath& path, const StraightPiece& piece, const Way& to_edge,
                      const Way& from_edge, std::int64_t area, Best& best) {
    const SmoothVertex &v = to_edge.vertex, &w = from_edge.vertex;
    if (v.node >= w.node) return;
    const double length = length_along(piece, v.at, w.at);
    if (length < kLeastPart * length_along(piece, path[piece.begin], path[piece.end])) return;
    const double begin = piece.across->offset(v.at), end = piece.across->offset(w.at);
    const double mean = (begin + end) / 2, difference = end - begin;
    const double distances =
        length * (mean * mean + kDirectionWeight * difference * difference / 12) / kPixelVolume;
    const std::size_t replaced = from_edge.anchor - to_edge.anchor;
    const double edges =
        to_edge.cost + distances + from_edge.cost - kVertexCost * static_cast<double>(replaced);
    if (best.to_edge && edges >= best.cost) return;
    make_chain(to_edge, from_edge);
    const std::int64_t made =
        area + swept_area(chain_) -
        swept_area(std::span(vertices_).subspan(to_edge.anchor, replaced + 1));
    const double cost = total_cost(edges, made);
    if (best.to_edge && cost >= best.cost) return;
    if (lies_in_tube(tube_, path, v, w)) best = {&to_edge, &from_edge, cost, made};
}

void EndSearch::make_chain(const Way& to_edge, const Way& from_edge) {
    const SmoothVertex &first = vertices_[to_edge.anchor], &last = vertices_[from_edge.anchor];
    chain_.assign(1, first);
    if (to_edge.between) chain_.push_back(*to_edge.between);
    if (to_edge.vertex != first) chain_.push_back(to_edge.vertex);
    if (from_edge.vertex != last) chain_.push_back(from_edge.vertex);
    if (from_edge.between) chain_.push_back(*from_edge.between);
    chain_.push_back(last);
}

} // namespace kelvane
