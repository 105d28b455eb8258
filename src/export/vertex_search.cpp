#include "export/vertex_search.h"

#include "export/edge_cost.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>
#include <limits>

namespace kelvane {
namespace {

// At the end of a bar, so many steps more are tried, as far as they are this close to its line.
constexpr std::int32_t kMoreForSquare = 4;
constexpr double kSquareOffset = 1;

// Where these fail, vertices up to so many nodes before and behind the joint are tried: about so
// many, evenly taken from all that serve, which bounds the time for each joint.
constexpr ExactPath::Index kJointNodes = 2;
constexpr std::size_t kMostCommon = 8;
// Of the lattice around a node every fourth row and column serves; others hardly lead further.
constexpr std::int32_t kCommonStep = 4;

// How strongly a vertex is drawn to the middle between its nearest points on two lines that are all
// but parallel; small beside the squared lengths of pieces.
constexpr double kDraw = kPixelSteps * kPixelSteps;

// Vertices are put in between this many nodes ahead: from an unfavourable vertex only the nearest
// may be seen, from others those far away.
constexpr std::array<std::uint32_t, 7> kAhead{1, 2, 4, 8, 16, 32, 64};
// Every so many rows or columns of the lattice.
constexpr std::int32_t kBetweenStep = 3;

// Straight runs of the path keep their heading rather than make up for area.
constexpr double kStraightWeight = 30;

// Vertices are moved again, by one lattice step in each of so many rounds, until no more area is
// left: a third of a pixel, well below 1 % of any outline around 50 pixels.
constexpr std::int64_t kAreaLeft = 2 * kPixelSteps * kPixelSteps / 3;
constexpr int kMostRounds = 8;
constexpr std::array<LatticePoint, 8> kNeighbours{
    {{1, 0}, {-1, 0}, {0, 1}, {0, -1}, {1, 1}, {-1, -1}, {1, -1}, {-1, 1}}};

constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();

bool axis_parallel(const ExactPath& path, const StraightPiece& piece) {
    return axis_parallel(path[piece.begin], path[piece.end]);
}

struct RealPoint {
    double x;
    double y;
};

// The vertex that the lines of two pieces ask for, near a node; the longer piece counts more.
RealPoint wanted_vertex(LatticePoint node, const StraightPiece& a, const StraightPiece& b,
                        double reach) {
    const FittedLine &la = a.line, &lb = b.line;
    const double da = la.offset(node), db = lb.offset(node);
    const double x = node.x - (da * la.nx + db * lb.nx) / 2;
    const double y = node.y - (da * la.ny + db * lb.ny) / 2;
    const double wa = a.length * a.length, wb = b.length * b.length;
    const double xx = wa * la.nx * la.nx + wb * lb.nx * lb.nx + kDraw;
    const double xy = wa * la.nx * la.ny + wb * lb.nx * lb.ny;
    const double yy = wa * la.ny * la.ny + wb * lb.ny * lb.ny + kDraw;
    const double fa = -wa * (la.nx * (x - la.x) + la.ny * (y - la.y));
    const double fb = -wb * (lb.nx * (x - lb.x) + lb.ny * (y - lb.y));
    const double fx = fa * la.nx + fb * lb.nx, fy = fa * la.ny + fb * lb.ny;
    const double determinant = xx * yy - xy * xy;
    return {std::clamp(x + (fx * yy - fy * xy) / determinant, node.x - reach, node.x + reach),
            std::clamp(y + (fy * xx - fx * xy) / determinant, node.y - reach, node.y + reach)};
}

// Leaves up to `most` of the vertices, evenly spread.
void thin_out(std::vector<SmoothVertex>& vertices, std::size_t most) {
    const std::size_t step = (vertices.size() + most - 1) / most;
    if (step <= 1) return;
    std::size_t kept = 0;
    for (std::size_t i = 0; i < vertices.size(); i += step)
        vertices[kept++] = vertices[i];
    vertices.erase(vertices.begin() + static_cast<std::ptrdiff_t>(kept), vertices.end());
}

} // namespace

void VertexSearch::candidates(const ExactPath& path, const StraightPiece& before,
                              const StraightPiece& behind, std::vector<SmoothVertex>& found) const {
    const Index node = behind.begin;
    const LatticePoint middle = path[node];
    if (axis_parallel(path, before) && axis_parallel(path, behind)) {
        found.push_back({middle, node});
        return;
    }
    const RealPoint wanted = wanted_vertex(middle, before, behind, tube_.vertex_reach());
    const LatticePoint below{static_cast<std::int32_t>(std::floor(wanted.x)),
                             static_cast<std::int32_t>(std::floor(wanted.y))};
    const auto keeps_square = [](const StraightPiece& piece, LatticePoint at) {
        return !piece.squared || std::abs(piece.line.offset(at)) <= kSquareOffset;
    };
    const std::int32_t more = before.squared || behind.squared ? kMoreForSquare : 0;
    for (std::int32_t y = -more; y <= 1 + more; ++y)
        for (std::int32_t x = -more; x <= 1 + more; ++x) {
            const LatticePoint at{below.x + x, below.y + y};
            if (within_reach(at, middle) && keeps_square(before, at) && keeps_square(behind, at))
                found.push_back({at, node});
        }
    if (found.empty()) found.push_back({middle, node});
}

// Nine vertices spread over the square of the joint, and over those one pixel before and behind.
void VertexSearch::widen(const ExactPath& path, const StraightPiece& before,
                         const StraightPiece& behind, std::vector<SmoothVertex>& found) const {
    const Index joint = behind.begin;
    std::vector<SmoothVertex> near;
    candidates(path, before, behind, near);
    const auto spread = [&](Index node) {
        const std::int32_t reach = tube_.vertex_reach();
        for (const std::int32_t y : {-reach, 0, reach})
            for (const std::int32_t x : {-reach, 0, reach})
                found.push_back({{path[node].x + x, path[node].y + y}, node});
    };
    found.clear();
    // Joints share no node: each has less than half of the piece between them.
    if (2 * (joint - 1) > before.begin + joint) spread(joint - 1);
    spread(joint);
    found.insert(found.end(), near.begin(), near.end());
    if (2 * (joint + 1) < joint + behind.end) spread(joint + 1);
}

void VertexSearch::run(const ExactPath& path, std::span<const StraightPiece> pieces,
                       std::span<const SmoothVertex> first, std::span<const SmoothVertex> last,
                       std::int64_t& area) {
    states_.clear();
    layers_.assign(1, {0, true});
    for (const SmoothVertex& vertex : first)
        states_.push_back({vertex, 0, 0, area});
    std::vector<SmoothVertex> targets;
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        targets.clear();
        if (i + 1 < pieces.size())
            candidates(path, pieces[i], pieces[i + 1], targets);
        else
            targets.assign(last.begin(), last.end());
        reach(path, pieces, i, targets);
    }
    const std::span<const State> ends = last_layer();
    const State* state =
        &*std::min_element(ends.begin(), ends.end(), [](const State& a, const State& b) {
            return total_cost(a.cost, a.area) < total_cost(b.cost, b.area);
        });
    area = state->area;
    vertices_.clear();
    for (std::size_t layer = layers_.size(); layer-- > 0; state = &states_[state->previous])
        vertices_.push_back(state->vertex);
    std::reverse(vertices_.begin(), vertices_.end());
    arcs_.run(path, pieces, vertices_, area);
    ends_.run(path, pieces, vertices_, area);
    EndSearch::mark(pieces, vertices_, at_ends_);
}

void VertexSearch::make_up_for(const ExactPath& path, bool ends_too, std::int64_t& area) {
    for (int round = 0; round < kMostRounds && std::abs(area) > kAreaLeft; ++round)
        if (!move_vertices(path, ends_too, area)) break;
}

// Moves vertices by one lattice step each to make the area smaller; false when none can.
bool VertexSearch::move_vertices(const ExactPath& path, bool ends_too, std::int64_t& area) {
    const std::int64_t before = area;
    for (std::size_t i = 1; i + 1 < vertices_.size() && std::abs(area) > kAreaLeft; ++i) {
        if (at_ends_[i] && !ends_too) continue;
        const SmoothVertex &previous = vertices_[i - 1], &next = vertices_[i + 1];
        SmoothVertex& vertex = vertices_[i];
        if (axis_parallel(previous.at, vertex.at) || axis_parallel(vertex.at, next.at)) continue;
        const LatticePoint node = path[vertex.node], at = vertex.at;
        for (const LatticePoint step : kNeighbours) {
            const std::int64_t moved = area + cross(step, next.at - previous.at);
            const SmoothVertex there{{at.x + step.x, at.y + step.y}, vertex.node};
            if (std::abs(moved) >= std::abs(area) || !within_reach(there.at, node)) continue;
            if (!lies_in_tube(tube_, path, previous, there) ||
                !lies_in_tube(tube_, path, there, next))
                continue;
            vertex = there;
            area = moved;
            break;
        }
    }
    return area != before;
}

bool VertexSearch::within_reach(LatticePoint vertex, LatticePoint node) const {
    const std::int32_t reach = tube_.vertex_reach();
    return std::abs(vertex.x - node.x) <= reach && std::abs(vertex.y - node.y) <= reach;
}

// On to the joint behind pieces[index].
void VertexSearch::reach(const ExactPath& path, std::span<const StraightPiece> pieces,
                         std::size_t index, std::vector<SmoothVertex>& targets) {
    if (advance(path, targets, true)) return;
    const bool from_joint = index > 0 && layers_.back().joint;
    if (from_joint && replace_joint(path, pieces[index - 1], pieces[index], targets)) return;
    if (index + 1 < pieces.size()) {
        widen(path, pieces[index], pieces[index + 1], targets);
        if (advance(path, targets, true)) return;
    }
    while (!advance(path, targets, true)) {
        if (insert_common(path, targets)) return;
        insert(path, pieces[index], targets.front().node);
    }
}

// Takes other vertices at the joint of two pieces, the last that was reached: all that are seen
// both from the vertices before and from `targets`. False, and nothing is changed, when no edges
// lead through them.
bool VertexSearch::replace_joint(const ExactPath& path, const StraightPiece& before,
                                 const StraightPiece& behind,
                                 std::span<const SmoothVertex> targets) {
    const Layer joint = layers_.back();
    const std::span<const State> sources =
        std::span(states_).first(joint.begin).subspan(layers_[layers_.size() - 2].begin);
    // Joints share no node: each has less than half of the piece between them.
    const Index first =
        std::max({behind.begin - std::min(behind.begin, kJointNodes),
                  (before.begin + behind.begin) / 2 + 1, sources.back().vertex.node + 1});
    const Index last = std::min({behind.begin + kJointNodes, (behind.begin + behind.end - 1) / 2,
                                 targets.front().node - 1});
    std::vector<SmoothVertex> common;
    look_from_both_ends(path, sources, targets, first, last);
    for (Index node = first; node <= last; ++node)
        add_common_vertices(path, node, common);
    thin_out(common, kMostCommon);
    const std::vector<State> joint_states(states_.begin() + joint.begin, states_.end());
    states_.resize(joint.begin);
    layers_.pop_back();
    if (advance_over(path, common, targets, true)) return true;
    states_.insert(states_.end(), joint_states.begin(), joint_states.end());
    layers_.push_back(joint);
    return false;
}

// Finds what is seen from `sources` and, backwards, from `targets` at the nodes from `first` to
// `last` between them.
void VertexSearch::look_from_both_ends(const ExactPath& path, std::span<const State> sources,
                                       std::span<const SmoothVertex> targets, Index first,
                                       Index last) {
    forward_.clear();
    backward_.clear();
    if (first > last) return;
    for (const State& source : sources) {
        Sight sight(source.vertex.at);
        for (Index node = source.vertex.node + 1;; ++node) {
            if (node >= first) forward_.push_back({node, sight});
            if (node == last || !sight.pass(tube_, path, node)) break;
        }
    }
    for (const SmoothVertex& target : targets) {
        Sight sight(target.at);
        for (Index node = target.node - 1;; --node) {
            if (node <= last) backward_.push_back({node, sight});
            if (node == first || !sight.pass(tube_, path, node, true)) break;
        }
    }
}

// The vertices near a node that are seen from both ends.
void VertexSearch::add_common_vertices(const ExactPath& path, Index node,
                                       std::vector<SmoothVertex>& found) {
    const VertexGrid grid(path[node], tube_.vertex_reach(), kCommonStep);
    const auto seen_from = [&](const std::vector<View>& views) {
        std::uint64_t seen = 0;
        for (const View& view : views)
            if (view.node == node) seen |= view.sight.seen(grid);
        return seen;
    };
    const std::uint64_t ahead = seen_from(forward_);
    if (ahead == 0) return;
    grid.for_each(ahead & seen_from(backward_), [&](LatticePoint at) {
        found.push_back({at, node});
    });
}

// Appends those of `targets` that edges from the last layer reach; false when there is none.
bool VertexSearch::advance(const ExactPath& path, std::span<const SmoothVertex> targets,
                           bool joint) {
    reached_.clear();
    for (const SmoothVertex& target : targets)
        reached_.push_back({target, kNone, 0, 0});
    const auto begin = static_cast<std::uint32_t>(states_.size());
    for (std::uint32_t from = layers_.back().begin; from < begin; ++from) {
        const Index node = states_[from].vertex.node;
        if (from == layers_.back().begin || states_[from - 1].vertex.node != node)
            measure_spans(path, node, targets);
        offer_edges(path, from);
    }
    for (const State& state : reached_)
        if (state.previous != kNone) states_.push_back(state);
    if (states_.size() == begin) return false;
    layers_.push_back({begin, joint});
    return true;
}

// Appends those of `between` through which edges lead to `targets`, and these; false, and nothing
// is changed, when there is none.
bool VertexSearch::advance_over(const ExactPath& path, std::span<const SmoothVertex> between,
                                std::span<const SmoothVertex> targets, bool joint) {
    if (!advance(path, between, joint)) return false;
    if (advance(path, targets, true)) return true;
    states_.resize(layers_.back().begin);
    layers_.pop_back();
    return false;
}

void VertexSearch::measure_spans(const ExactPath& path, Index from,
                                 std::span<const SmoothVertex> targets) {
    spans_.clear();
    hinges_.clear();
    Span span{from, true, {}, 0};
    PathMoments moments;
    const LatticePoint origin = path[from];
    Heading headings[2] = {path.leaving(from), path.leaving(from)};
    for (const SmoothVertex& target : targets) {
        if (target.node <= span.to) continue;
        for (; span.to < target.node; ++span.to) {
            const Heading heading = path.leaving(span.to);
            if (span.straight && heading != headings[0]) {
                span.straight = false;
                headings[1] = heading;
            }
            if (heading != headings[0] && heading != headings[1]) return;
            if (span.to > from && path.is_corner(span.to))
                hinges_.push_back({tube_.hinge(path, span.to), span.to, path.turns_left(span.to)});
            const LatticePoint a = path[span.to] - origin, b = path[span.to + 1] - origin;
            moments.add_link(a, b);
            span.area += cross(a, b);
        }
        span.moments = moments.central();
        spans_.push_back(span);
    }
}

// Offers the edges from one state to the vertices to be reached.
void VertexSearch::offer_edges(const ExactPath& path, std::uint32_t from) {
    const State& state = states_[from];
    const LatticePoint origin = path[state.vertex.node];
    const LatticePoint v = state.vertex.at - origin;
    Sight sight(state.vertex.at);
    auto hinge = hinges_.begin();
    auto to = reached_.begin();
    for (const Span& span : spans_) {
        for (; hinge != hinges_.end() && hinge->corner < span.to; ++hinge)
            if (!sight.pass(hinge->at, hinge->left_turn)) return;
        while (to->vertex.node < span.to)
            ++to;
        const LatticePoint end = path[span.to] - origin;
        for (; to != reached_.end() && to->vertex.node == span.to; ++to) {
            if (!sight.sees(to->vertex.at)) continue;
            const LatticePoint w = to->vertex.at - origin;
            const double distances = edge_cost(span.moments, v, w);
            const double cost = state.cost + (span.straight ? kStraightWeight : 1) * distances;
            const std::int64_t area = state.area + cross(v, w) + cross(w, end) - span.area;
            if (to->previous == kNone || total_cost(cost, area) < total_cost(to->cost, to->area))
                *to = {to->vertex, from, cost, area};
        }
    }
}

// Puts a single vertex in between, if edges lead through one from the last layer to `targets`: near
// one end of the way, so that the longer edge keeps the direction of the line, or anywhere. False,
// and nothing is changed, when there is none.
bool VertexSearch::insert_common(const ExactPath& path, std::span<const SmoothVertex> targets) {
    const Index from = states_.back().vertex.node, way = targets.front().node - from;
    look_from_both_ends(path, last_layer(), targets, from + 1, from + way - 1);
    const auto insert_at = [&](std::initializer_list<Index> sixteenths) {
        std::vector<SmoothVertex> common;
        Index last = from;
        for (const Index part : sixteenths) {
            const Index node = from + way * part / 16;
            if (node == last) continue;
            add_common_vertices(path, node, common);
            last = node;
        }
        thin_out(common, kMostCommon);
        return advance_over(path, common, targets, false);
    };
    return insert_at({1, 2, 14, 15}) || insert_at({2, 4, 6, 8, 10, 12, 14});
}

// Puts a vertex in between, of candidates at several nodes on the way to node `before`.
void VertexSearch::insert(const ExactPath& path, const StraightPiece& piece, Index before) {
    // Of vertices put in before that did not reach the target, the furthest go on.
    const Index from = states_.back().vertex.node;
    const auto furthest = std::find_if(states_.begin() + layers_.back().begin, states_.end(),
                                       [&](const State& s) { return s.vertex.node == from; });
    states_.erase(states_.begin() + layers_.back().begin, furthest);

    std::vector<SmoothVertex> between;
    for (const std::uint32_t ahead : kAhead)
        if (ahead < before - from) add_candidates_between(path, piece, from + ahead, between);
    if (advance(path, between, false)) return;
    // A single link is always seen.
    const SmoothVertex on_path{path[from + 1], from + 1};
    advance(path, {&on_path, 1}, false);
}

// Vertices near the piece's line: two in each row or column of the lattice.
void VertexSearch::add_candidates_between(const ExactPath& path, const StraightPiece& piece,
                                          Index node, std::vector<SmoothVertex>& found) const {
    const FittedLine& line = piece.line;
    const std::int32_t reach = tube_.vertex_reach();
    const LatticePoint middle = path[node];
    const bool flat = std::abs(line.ny) >= std::abs(line.nx);
    for (std::int32_t along = -reach; along <= reach; along += kBetweenStep) {
        const double across =
            flat ? line.y - line.nx / line.ny * (middle.x + along - line.x) - middle.y
                 : line.x - line.ny / line.nx * (middle.y + along - line.y) - middle.x;
        const double floor = std::floor(across);
        for (const double step : {floor, floor + 1}) {
            if (std::abs(step) > reach) continue;
            const auto beside = static_cast<std::int32_t>(step);
            found.push_back({flat ? LatticePoint{middle.x + along, middle.y + beside}
                                  : LatticePoint{middle.x + beside, middle.y + along},
                             node});
        }
    }
}

} // namespace kelvane
