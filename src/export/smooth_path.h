// Exact outlines as paths on the lattice of the smooth ones, and the tube around such a path.
//
// Why smooth outlines neither cross nor touch. An exact outline is a path of unit steps between
// the corners of pixels. A subpath S of it from p to q becomes one straight edge from a vertex v
// near p to a vertex w near q. The edge is to lie in the tube of S: the points nearer to S than
// half a pixel in the maximum norm, that is the open unit squares around the corners of pixels that
// S passes, joined where S steps from one to the next.
//
// - Squares around different corners of pixels have no point in common. Nearly every corner is
//   passed once, by one subpath, or is the end of one and the beginning of the next. So edges of
//   subpaths that do not follow one another lie in tubes without a common point. Two that follow
//   one another meet in the square around their common end p only; there each has a straight piece
//   from the vertex to another side of the square, so they share the vertex alone, and the second
//   never runs back along the first.
// - Two kinds of corners are passed twice: those where two pixels meet diagonally, and the ends of
//   the upper edge of a bridge strip. They are kept, that is, both subpaths end there in the point
//   itself. Each of the four edges then leaves the centre of the square for the middle of another
//   side (more exactly, for a point of the side to which its subpath steps), so they meet in the
//   centre only.
// - A strip lies in the closed squares around the corners that its upper edge passes. The outline
//   above passes them straight and exactly. The lowered outline below touches their lower sides
//   from outside, where the squares belong to no other outline; its vertices there are kept too.
// - The edge takes part in the same crossings from square to square as S does. So the smooth
//   outline can be deformed into the exact one without touching the middle of any pixel: each
//   pixel's middle stays on its side, the sense of turning stays, and no outline vanishes.
//
// When an edge lies in the tube of S: S runs in two directions at most (say east and north), so its
// tube is a simply connected band, and the bends of the shortest way through it from v to w are at
// the inner corners of the tube's bends, here called hinges. That way is straight exactly when all
// hinges of left turns are on the left of the edge v w and all of right turns on its right; one
// look at each corner of S decides. The hinges of the half-pixel tube are the middles of pixels.
//
// A smaller tolerance takes a smaller radius: the same holds for the closed tubes of that radius.
// As the edge passes through the square around each corner of S, no point of S is further from it
// than the radius either.
#pragma once

#include <array>
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

enum class Heading : std::uint8_t { kEast, kNorth, kWest, kSouth };

constexpr LatticePoint unit_step(Heading heading) {
    constexpr std::array<LatticePoint, 4> kSteps{{{1, 0}, {0, 1}, {-1, 0}, {0, -1}}};
    return kSteps[static_cast<std::size_t>(heading)];
}
constexpr Heading left_of(Heading heading) {
    return static_cast<Heading>((static_cast<unsigned>(heading) + 1) % 4);
}
constexpr Heading heading_to(LatticePoint from, LatticePoint to) {
    if (from.y == to.y) return to.x > from.x ? Heading::kEast : Heading::kWest;
    return to.y > from.y ? Heading::kNorth : Heading::kSouth;
}

/// A path of axis-parallel links between nodes. Nodes are the turns of the path, and points between
/// them at which a subpath may end.
class ExactPath {
  public:
    using Index = std::uint32_t;

    void clear() { nodes_.clear(); }
    /// Appends a node, in line with the last or straight above, below or beside it.
    void append(LatticePoint at) {
        if (!nodes_.empty()) nodes_.back().leaving = heading_to(nodes_.back().at, at);
        nodes_.push_back({at, Heading::kEast});
    }
    /// For a closed path, whose last node repeats the first.
    void set_closed() { nodes_.back().leaving = nodes_.front().leaving; }

    Index size() const { return static_cast<Index>(nodes_.size()); }
    Index last() const { return size() - 1; }
    LatticePoint operator[](Index node) const { return nodes_[node].at; }
    Heading leaving(Index node) const { return nodes_[node].leaving; }
    /// Whether the path turns at an inner node.
    bool is_corner(Index node) const { return leaving(node - 1) != leaving(node); }
    bool turns_left(Index corner) const { return left_of(leaving(corner - 1)) == leaving(corner); }
    /// From link `node` on, in lattice steps.
    std::int32_t link_length(Index node) const {
        return distance(nodes_[node].at, nodes_[node + 1].at);
    }

  private:
    struct Node {
        LatticePoint at;
        Heading leaving; // of the link to the next node
    };
    std::vector<Node> nodes_;
};

/// The tube around exact paths in which their edges run.
class Tube {
  public:
    /// In parts of a lattice step, as all radii; the tube of this radius is open, smaller ones are
    /// closed.
    static constexpr std::int32_t kHalfPixel = kPixelParts / 2;

    explicit Tube(std::int32_t radius) : radius_(radius) {}

    double radius_in_steps() const { return static_cast<double>(radius_) / kStepParts; }
    bool open() const { return radius_ == kHalfPixel; }
    /// How far a vertex may be from its node, in x and in y, in lattice steps.
    std::int32_t vertex_reach() const { return (open() ? radius_ - 1 : radius_) / kStepParts; }
    FinePoint hinge(const ExactPath& path, ExactPath::Index corner) const {
        const LatticePoint in = unit_step(path.leaving(corner - 1));
        const LatticePoint out = unit_step(path.leaving(corner));
        const FinePoint at = fine(path[corner]);
        return {at.x + radius_ * (out.x - in.x), at.y + radius_ * (out.y - in.y)};
    }

  private:
    std::int32_t radius_;
};

/// What is seen from a vertex along the tube, past the hinges passed so far.
class Sight {
  public:
    Sight(const Tube& tube, LatticePoint from)
        : from_(fine(from)), left_(from_), right_(from_), slack_(tube.open() ? 1 : 0) {}

    /// False when nothing behind the hinge is seen any more.
    bool pass(FinePoint hinge, bool left_turn) {
        if (left_turn) {
            if (left_ == from_ || turn(from_, left_, hinge) < 0) left_ = hinge;
        } else {
            if (right_ == from_ || turn(from_, right_, hinge) > 0) right_ = hinge;
        }
        return left_ == from_ || right_ == from_ || turn(from_, right_, left_) >= slack_;
    }
    /// Whether the edge to a vertex behind the last hinge lies in the tube.
    bool sees(LatticePoint vertex) const {
        const FinePoint to = fine(vertex);
        return (left_ == from_ || turn(from_, to, left_) >= slack_) &&
               (right_ == from_ || turn(from_, to, right_) <= -slack_);
    }

  private:
    FinePoint from_;
    FinePoint left_; // the hinge that limits the view on the left; `from_` while there is none
    FinePoint right_;
    std::int64_t slack_;
};

} // namespace kelvane
