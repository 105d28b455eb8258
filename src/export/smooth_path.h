// Exact outlines as paths on the lattice of the smooth ones, and the tube around such a path.
//
// Why smooth outlines neither cross nor touch. An exact outline is a path of unit steps between
// the corners of pixels. A subpath S of it from p to q becomes one straight edge from a vertex v
// near p to a vertex w near q. The edge is to lie in the tube of S: the points nearer to S than
// half a pixel in the maximum norm, that is the open unit squares around the corners of pixels that
// S passes, joined where S steps from one to the next. At the inner corners of the tube's bends,
// here called hinges, it may touch the wall; hinges are the middles of the pixels inside the turns
// of S.
//
// - Squares around different corners of pixels have no point in common. Nearly every corner is
//   passed once, by one subpath, or is the end of one and the beginning of the next. So edges of
//   subpaths that do not follow one another lie in tubes without a common point. Two that follow
//   one another meet in the square around their common end p only; there each has a straight piece
//   from the vertex to another side of the square, so they share the vertex alone, and the second
//   never runs back along the first.
// - No open square holds the middle of a pixel. So an edge that touches a hinge meets another edge
//   there only if that one touches it too, as a hinge of its own: the pixel then lies inside two
//   turns. It has a third side on an outline, and this one turns the same way a pixel before or
//   behind; or a kept corner is that near. Such hinges count as shared and are not touched: the
//   edge keeps a part of a lattice step away from them.
// - Two kinds of corners are passed twice: those where two pixels meet diagonally, and the ends of
//   the upper edge of a bridge strip. They are kept, that is, both subpaths end there in the point
//   itself. Each of the four edges then leaves the centre of the square for the middle of another
//   side (more exactly, for a point of the side to which its subpath steps), so they meet in the
//   centre only.
// - A strip lies in the closed squares around the corners that its upper edge passes. The outline
//   above passes them straight and exactly. The lowered outline below touches their lower sides
//   from outside, where the squares belong to no other outline; its vertices there are kept too. It
//   passes the middles of the pixels below the strip. Only the two pixels at its ends can lie
//   inside turns, and those are half a pixel from kept vertices: their hinges are shared.
// - The edge takes part in the same crossings from square to square as S does. So the smooth
//   outline can be deformed into the exact one without crossing the middle of any pixel: each
//   pixel's middle stays on its side or comes to lie on the edge, the sense of turning stays, and
//   no outline vanishes.
//
// When an edge lies in the tube of S: S runs in two directions at most (say east and north), so its
// tube is a simply connected band, and the bends of the shortest way through it from v to w are at
// hinges. That way is straight exactly when all hinges of left turns are on the left of the edge v
// w and all of right turns on its right; one look at each corner of S decides. The edge touches the
// wall nowhere else: v and w lie inside, and hinges of left and right turns alternate, so that no
// two are joined by a wall along which an edge could run.
//
// A smaller tolerance takes a smaller radius: then the tubes are apart from one another even with
// their walls. As the edge passes through the closed square around each corner of S, no point of S
// is further from it than the radius either.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace kelvane {

/// Lattice steps per pixel.
inline constexpr std::int32_t kPixelSteps = 16;

/// A point in lattice steps.
struct LatticePoint {
    std::int32_t x;
    std::int32_t y;

    friend bool operator==(const LatticePoint&, const LatticePoint&) = default;
    friend constexpr LatticePoint operator-(LatticePoint a, LatticePoint b) {
        return {a.x - b.x, a.y - b.y};
    }
};

constexpr std::int64_t cross(LatticePoint a, LatticePoint b) {
    return std::int64_t{a.x} * b.y - std::int64_t{a.y} * b.x;
}

/// Parts of a lattice step, in which the tube is measured: hundredths of a pixel are a whole number
/// of them.
inline constexpr std::int32_t kStepParts = 25;
inline constexpr std::int32_t kPixelParts = kPixelSteps * kStepParts;

/// A point in parts of a lattice step.
struct FinePoint {
    std::int32_t x;
    std::int32_t y;

    friend bool operator==(const FinePoint&, const FinePoint&) = default;
};

constexpr FinePoint fine(LatticePoint p) {
    return {p.x * kStepParts, p.y * kStepParts};
}
/// Positive when `c` lies to the left of the way from `a` to `b`.
template <typename Point> constexpr std::int64_t turn(Point a, Point b, Point c) {
    return std::int64_t{b.x - a.x} * (c.y - a.y) - std::int64_t{b.y - a.y} * (c.x - a.x);
}

constexpr bool axis_parallel(LatticePoint a, LatticePoint b) {
    return a.x == b.x || a.y == b.y;
}
/// In the sum norm.
inline std::int32_t distance(LatticePoint a, LatticePoint b) {
    return std::abs(b.x - a.x) + std::abs(b.y - a.y);
}

enum class Heading : std::uint8_t { East, North, West, South };

constexpr LatticePoint unit_step(Heading heading) {
    constexpr std::array<LatticePoint, 4> kSteps{{{1, 0}, {0, 1}, {-1, 0}, {0, -1}}};
    return kSteps[static_cast<std::size_t>(heading)];
}
constexpr Heading left_of(Heading heading) {
    return static_cast<Heading>((static_cast<unsigned>(heading) + 1) % 4);
}
constexpr Heading heading_to(LatticePoint from, LatticePoint to) {
    if (from.y == to.y) return to.x > from.x ? Heading::East : Heading::West;
    return to.y > from.y ? Heading::North : Heading::South;
}

/// A path of axis-parallel links between nodes. Nodes are the turns of the path, and points between
/// them at which a subpath may end.
class ExactPath {
  public:
    using Index = std::uint32_t;

    void clear() { nodes_.clear(); }
    /// Appends a node, in line with the last or straight above, below or beside it. `shared` tells
    /// that the middle of the pixel inside the turn belongs to other edges as well.
    void append(LatticePoint at, bool shared) {
        if (!nodes_.empty()) {
            nodes_.back().leaving = heading_to(nodes_.back().at, at);
            if (nodes_.size() > 1) set_turn(nodes_[nodes_.size() - 2], nodes_.back());
        }
        nodes_.push_back({at, Heading::East, Turn::None, {0, 0}, shared});
    }

    Index size() const { return static_cast<Index>(nodes_.size()); }
    Index last() const { return size() - 1; }
    LatticePoint operator[](Index node) const { return nodes_[node].at; }
    Heading leaving(Index node) const { return nodes_[node].leaving; }
    bool shared(Index node) const { return nodes_[node].shared; }
    /// Whether the path turns at an inner node.
    bool is_corner(Index node) const { return nodes_[node].turn != Turn::None; }
    bool turns_left(Index corner) const { return nodes_[corner].turn == Turn::Left; }
    /// Into the bend of a corner: to the middle of the pixel there in halves of a pixel.
    LatticePoint inwards(Index corner) const { return nodes_[corner].inwards; }
    /// From link `node` on, in lattice steps.
    std::int32_t link_length(Index node) const {
        return distance(nodes_[node].at, nodes_[node + 1].at);
    }

  private:
    enum class Turn : std::uint8_t { None, Left, Right };
    struct Node {
        LatticePoint at;
        Heading leaving; // of the link to the next node
        Turn turn;
        LatticePoint inwards;
        bool shared;
    };
    static void set_turn(const Node& before, Node& node) {
        if (before.leaving == node.leaving) return;
        node.turn = left_of(before.leaving) == node.leaving ? Turn::Left : Turn::Right;
        node.inwards = unit_step(node.leaving) - unit_step(before.leaving);
    }
    std::vector<Node> nodes_;
};

/// The closed tube around exact paths in which their edges run.
class Tube {
  public:
    /// In parts of a lattice step, as all radii.
    static constexpr std::int32_t kHalfPixel = kPixelParts / 2;

    explicit Tube(std::int32_t radius) : radius_(radius) {}

    double radius_in_steps() const { return static_cast<double>(radius_) / kStepParts; }
    /// How far a vertex may be from its node, in x and in y, in lattice steps: less than half a
    /// pixel.
    std::int32_t vertex_reach() const { return std::min(radius_, kHalfPixel - 1) / kStepParts; }
    /// The point that edges have to pass on the outer side of a corner.
    FinePoint hinge(const ExactPath& path, ExactPath::Index corner) const {
        const FinePoint at = fine(path[corner]);
        const LatticePoint inwards = path.inwards(corner);
        const std::int32_t radius =
            path.shared(corner) ? std::min(radius_, kHalfPixel - 1) : radius_;
        return {at.x + radius * inwards.x, at.y + radius * inwards.y};
    }

  private:
    std::int32_t radius_;
};

/// A vertex and the node in whose square it lies.
struct SmoothVertex {
    LatticePoint at;
    ExactPath::Index node;

    friend bool operator==(const SmoothVertex&, const SmoothVertex&) = default;
};

/// Some of the lattice in the square around a node: every so many rows and columns, at most 64
/// vertices, which are numbered row by row.
class VertexGrid {
  public:
    VertexGrid(LatticePoint middle, std::int32_t reach, std::int32_t step)
        : first_{middle.x - reach, middle.y - reach}, step_(step), columns_(2 * reach / step + 1) {}

    LatticePoint first() const { return first_; }
    std::int32_t step() const { return step_; }
    int columns() const { return columns_; }
    /// The bits of all vertices.
    std::uint64_t all() const { return ~std::uint64_t{0} >> (64 - columns_ * columns_); }
    LatticePoint operator[](int index) const {
        return {first_.x + step_ * (index % columns_), first_.y + step_ * (index / columns_)};
    }
    /// For each set bit in ascending order: the vertex of that number.
    template <typename Visit> void for_each(std::uint64_t bits, Visit visit) const {
        for (; bits != 0; bits &= bits - 1)
            visit((*this)[std::countr_zero(bits)]);
    }

  private:
    LatticePoint first_;
    std::int32_t step_;
    int columns_;
};

/// What is seen from a vertex along the tube, past the hinges passed so far.
class Sight {
  public:
    explicit Sight(LatticePoint from) : from_(fine(from)), left_(from_), right_(from_) {}

    /// False when nothing behind the hinge is seen any more.
    bool pass(FinePoint hinge, bool left_turn) {
        if (left_turn) {
            if (left_ == from_ || turn(from_, left_, hinge) < 0) left_ = hinge;
        } else {
            if (right_ == from_ || turn(from_, right_, hinge) > 0) right_ = hinge;
        }
        return turn(from_, right_, left_) >= 0;
    }
    /// The same with the hinge of a node, which may be none; on the way back, turns are reversed.
    bool pass(const Tube& tube, const ExactPath& path, ExactPath::Index node,
              bool backwards = false) {
        return !path.is_corner(node) ||
               pass(tube.hinge(path, node), path.turns_left(node) != backwards);
    }
    /// Whether the edge to a vertex behind the last hinge lies in the tube.
    bool sees(LatticePoint vertex) const {
        const FinePoint to = fine(vertex);
        return turn(from_, to, left_) >= 0 && turn(from_, to, right_) <= 0;
    }

    /// The bits of the vertices that `sees` tells to be seen.
    std::uint64_t seen(const VertexGrid& grid) const {
        const FinePoint first = fine(grid.first());
        const std::int64_t step = std::int64_t{grid.step()} * kStepParts;
        std::int64_t left_row = turn(from_, first, left_), right_row = turn(from_, first, right_);
        std::uint64_t bits = 0, bit = 1;
        for (int row = 0; row < grid.columns(); ++row) {
            std::int64_t left = left_row, right = right_row;
            for (int column = 0; column < grid.columns(); ++column) {
                if (left >= 0 && right <= 0) bits |= bit;
                bit <<= 1;
                left += step * (left_.y - from_.y);
                right += step * (right_.y - from_.y);
            }
            left_row -= step * (left_.x - from_.x);
            right_row -= step * (right_.x - from_.x);
        }
        return bits;
    }

  private:
    FinePoint from_;
    // The hinge that limits the view on the left; `from_` while there is none, with which no point
    // makes a turn.
    FinePoint left_;
    FinePoint right_;
};

/// Whether the edge from one vertex to another further ahead lies in the tube.
inline bool lies_in_tube(const Tube& tube, const ExactPath& path, const SmoothVertex& from,
                         const SmoothVertex& to) {
    Sight sight(from.at);
    for (ExactPath::Index node = from.node + 1; node < to.node; ++node)
        if (!sight.pass(tube, path, node)) return false;
    return sight.sees(to.at);
}

/// What is seen at a node.
struct View {
    ExactPath::Index node;
    Sight sight;
};

} // namespace kelvane
