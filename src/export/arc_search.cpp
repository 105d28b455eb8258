#include "export/arc_search.h"

#include "export/edge_cost.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kelvane {
namespace {

// An arc: so many pieces, of similar lengths, with small angles between them.
constexpr std::size_t kLeastPieces = 5;
constexpr double kShortestPiece = 5 * kPixelSteps;
constexpr double kMostRatio = 4;
constexpr double kMostSine = .42;

// Vertices are tried at so many nodes before the furthest; so many of them are gone on from.
constexpr ExactPath::Index kNodesBack = 5;
constexpr std::size_t kMostReached = 32;

// Rounds in which the vertices found are spread, and how many nodes one may move in each.
constexpr int kRounds = 3;
constexpr ExactPath::Index kNodesToMove = 6;

bool follow_arc(const StraightPiece& a, const StraightPiece& b) {
    return a.line.cosine_to(b.line) > 0 && std::abs(a.line.sine_to(b.line)) <= kMostSine &&
           std::min(a.length, b.length) >= kShortestPiece &&
           std::max(a.length, b.length) <= kMostRatio * std::min(a.length, b.length);
}

} // namespace

void ArcSearch::run(const ExactPath& path, std::span<const StraightPiece> pieces,
                    std::vector<SmoothVertex>& vertices, std::int64_t& area) {
    if (vertices.size() <= pieces.size() + 1) return;
    shortened_.clear();
    std::size_t vertex = 0, done = 0; // `done` vertices are in `shortened_`
    const auto vertex_near = [&](Index node) {
        const auto distance = [&](std::size_t i) {
            return std::abs(static_cast<std::int64_t>(vertices[i].node) - node);
        };
        while (vertex + 1 < vertices.size() && distance(vertex + 1) <= distance(vertex))
            ++vertex;
        return vertex;
    };
    const auto copy_up_to = [&](std::size_t end) {
        const std::span<const SmoothVertex> copied(vertices.begin() + done, vertices.begin() + end);
        shortened_.insert(shortened_.end(), copied.begin(), copied.end());
    };
    for (std::size_t begin = 0, end; begin < pieces.size(); begin = end) {
        end = begin + 1;
        while (end < pieces.size() && follow_arc(pieces[end - 1], pieces[end]))
            ++end;
        if (end - begin < kLeastPieces) continue;
        const std::size_t first = vertex_near(pieces[begin].begin);
        const std::size_t last = vertex_near(pieces[end - 1].end);
        const std::span<const SmoothVertex> arc =
            std::span(vertices).subspan(first, last - first + 1);
        if (last - first <= end - begin || !shorten(path, arc, area)) continue;
        copy_up_to(first);
        shortened_.insert(shortened_.end(), chain_.begin(), chain_.end() - 1);
        done = last;
    }
    copy_up_to(vertices.size());
    std::swap(vertices, shortened_);
}

// Finds a way with fewer vertices between the first and the last of an arc, and spreads them.
bool ArcSearch::shorten(const ExactPath& path, std::span<const SmoothVertex> arc,
                        std::int64_t& area) {
    if (!find_chain(path, arc.front(), arc.back(), arc.size() - 2)) return false;
    area += swept_area(chain_) - swept_area(arc);
    for (int round = 0; round < kRounds; ++round)
        for (std::size_t i = chain_.size() - 1; --i > 0;)
            settle(path, i, area);
    return true;
}

// Finds the fewest edges from one vertex to another; false when they are more than `most_edges`.
bool ArcSearch::find_chain(const ExactPath& path, const SmoothVertex& first,
                           const SmoothVertex& last, std::size_t most_edges) {
    reached_.assign(1, {first, 0});
    first_node_ = first.node;
    reached_at_.assign(last.node - first.node + 1, 0);
    std::size_t begin = 0;
    for (std::size_t edges = 1; edges <= most_edges; ++edges) {
        const std::size_t end = reached_.size();
        furthest_ = first.node;
        for (std::size_t source = begin; source < end; ++source)
            if (look_ahead(path, static_cast<std::uint32_t>(source), last)) {
                collect_chain(source, last);
                return true;
            }
        begin = end;
        drop_nearest(begin);
        if (begin == reached_.size()) return false;
    }
    return false;
}

void ArcSearch::collect_chain(std::size_t source, const SmoothVertex& last) {
    chain_.assign({last});
    for (; source > 0; source = reached_[source].previous)
        chain_.push_back(reached_[source].vertex);
    chain_.push_back(reached_[0].vertex);
    std::reverse(chain_.begin(), chain_.end());
}

// Reaches vertices from one; true when `last` is seen.
bool ArcSearch::look_ahead(const ExactPath& path, std::uint32_t source, const SmoothVertex& last) {
    const SmoothVertex from = reached_[source].vertex;
    Sight sight(from.at);
    views_.clear();
    Index node = from.node + 1;
    while (node < last.node) {
        views_.push_back({node, sight});
        if (!sight.pass(tube_, path, node)) break;
        ++node;
    }
    if (node == last.node && sight.sees(last.at)) return true;
    for (auto view = views_.rbegin(); view != views_.rend(); ++view) {
        if (view->node + kNodesBack < std::max(furthest_, node)) break;
        reach(path, *view, source);
    }
    return false;
}

void ArcSearch::reach(const ExactPath& path, const View& view, std::uint32_t source) {
    const VertexGrid grid = grid_around(path[view.node]);
    std::uint64_t& reached = reached_at_[view.node - first_node_];
    const std::uint64_t seen = view.sight.seen(grid) & ~reached;
    if (seen == 0) return;
    reached |= seen;
    furthest_ = std::max(furthest_, view.node);
    grid.for_each(seen, [&](LatticePoint at) { reached_.push_back({{at, view.node}, source}); });
}

// Leaves the vertices near the furthest node, evenly thinned out.
void ArcSearch::drop_nearest(std::size_t begin) {
    const auto level = reached_.begin() + static_cast<std::ptrdiff_t>(begin);
    reached_.erase(std::remove_if(level, reached_.end(),
                                  [&](const Reached& reached) {
                                      return reached.vertex.node + kNodesBack < furthest_;
                                  }),
                   reached_.end());
    std::stable_sort(level, reached_.end(), [](const Reached& a, const Reached& b) {
        return a.vertex.node > b.vertex.node;
    });
    const std::size_t count = reached_.size() - begin, kept = std::min(count, kMostReached);
    for (std::size_t i = 0; i < kept; ++i)
        reached_[begin + i] = reached_[begin + i * count / kept];
    reached_.resize(begin + kept);
}

// Moves a vertex between its neighbours to where it costs least.
void ArcSearch::settle(const ExactPath& path, std::size_t index, std::int64_t& area) {
    const LatticePoint before = chain_[index - 1].at, behind = chain_[index + 1].at;
    SmoothVertex& vertex = chain_[index];
    find_places(path, index);
    const LatticePoint origin = path[chain_[index - 1].node];
    const std::int64_t area_without = area - cross(vertex.at - before, behind - before);
    double least = std::numeric_limits<double>::infinity();
    const auto offer = [&](const Place& place, LatticePoint at) {
        const std::int64_t made = area_without + cross(at - before, behind - before);
        const double edges = edge_cost(place.before, before - origin, at - origin) +
                             edge_cost(place.behind, at - origin, behind - origin);
        if (const double cost = total_cost(edges, made); cost < least) {
            least = cost;
            area = made;
            vertex = {at, place.node};
        }
    };
    const SmoothVertex old = vertex;
    for (const Place& place : places_) {
        if (place.node == old.node) offer(place, old.at);
        const VertexGrid grid = grid_around(path[place.node]);
        grid.for_each(place.ahead.seen(grid) & place.back.seen(grid),
                      [&](LatticePoint at) { offer(place, at); });
    }
}

// The nodes near a vertex that are seen from both its neighbours.
void ArcSearch::find_places(const ExactPath& path, std::size_t index) {
    const SmoothVertex before = chain_[index - 1], behind = chain_[index + 1];
    const Index at = chain_[index].node;
    const Index first = std::max(before.node + 1, at - std::min(at, kNodesToMove));
    const Index last = std::min(behind.node - 1, at + kNodesToMove);
    const LatticePoint origin = path[before.node];
    places_.clear();
    Sight sight(before.at), back(behind.at);
    PathMoments moments, back_moments;
    for (Index node = before.node + 1; node <= last; ++node) {
        moments.add_link(path[node - 1] - origin, path[node] - origin);
        if (node >= first) places_.push_back({node, sight, back, moments.central(), {}});
        if (!sight.pass(tube_, path, node)) break;
    }
    Index node = behind.node;
    do {
        --node;
        back_moments.add_link(path[node + 1] - origin, path[node] - origin);
        if (node - first < places_.size()) {
            places_[node - first].back = back;
            places_[node - first].behind = back_moments.central();
        }
    } while (node > first && back.pass(tube_, path, node, true));
    const auto seen = places_.begin() + std::min<std::ptrdiff_t>(node - first, std::ssize(places_));
    places_.erase(places_.begin(), seen);
}

} // namespace kelvane
