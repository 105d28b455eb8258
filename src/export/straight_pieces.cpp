#include "export/straight_pieces.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kelvane {
namespace {

// How far the line may pass from an end, in lattice steps: as far as a vertex may move; up to the
// wall of the tube for long pieces; hardly at all at a kept end.
constexpr std::int32_t kLongPiece = 20 * kPixelSteps;
constexpr double kKeptEndDistance = 2;

// A slope shows in four turns, or in two between longer runs: what has less is a detail to keep.
constexpr int kSlopeTurns = 4;
constexpr std::int32_t kSingleStepRun = 4 * kPixelSteps;

// Closer hinges than this, in lattice steps, leave vertices on the lattice little room.
constexpr double kRoom = 1;
// How far behind a hinge, in lattice steps, a line of best fit may pass: the vertices are drawn
// back into the tube.
constexpr double kFitBeyond = 1;

} // namespace

// A piece that grows node by node. Points are seen from its first node, turned by 45 degrees: for a
// path to the east and north, u counts the steps of both, w the steps north less those to the east.
// So u ascends along the path, and the hinges of left turns are upper limits of a line.
class StraightPieces::Growth {
  public:
    Growth(const ExactPath& path, const Tube& tube, SeparatingLines& lines, Index begin)
        : path_(path), tube_(tube), lines_(lines), begin_(begin), origin_(path[begin]), end_(begin),
          measured_(begin) {
        lines_.reset();
    }

    // Takes the next node in; false when there is none, or no line follows the path so far.
    bool grow() {
        if (end_ == path_.last() || end_ - begin_ == kMostNodes) return false;
        if (end_ > begin_ && path_.is_corner(end_) && !pass_corner()) return false;
        const std::int32_t link = path_.link_length(end_);
        run_ += link;
        length_ += link;
        ++end_;
        return true;
    }

    Index end() const { return end_; }
    bool straight() const { return turns_ == 0; }
    bool shows_slope() const {
        return turns_ >= kSlopeTurns ||
               (turns_ == 2 && std::min(first_run_, run_) >= kSingleStepRun);
    }
    // In lattice steps.
    std::int64_t length() const { return length_; }
    // Summed up to the end only when asked for: most ends come second to another piece.
    PathMoments::Central moments() {
        for (; measured_ < end_; ++measured_)
            moments_.add_link(relative(path_[measured_]), relative(path_[measured_ + 1]));
        return moments_.central();
    }
    // The integral of the squared distances between the path and the line of best fit.
    double residual() {
        return straight() ? 0 : moments().least_mean_square() * static_cast<double>(length_);
    }
    LatticePoint relative(LatticePoint p) const { return p - origin_; }
    FinePoint relative(FinePoint p) const {
        const FinePoint origin = fine(origin_);
        return {p.x - origin.x, p.y - origin.y};
    }

    // Whether the line of best fit tells the slope where the middle one does not: with few steps
    // the lines that pass differ much. With more, pieces that only it opens find no vertices.
    bool told_by_best_fit() const { return turns_ <= kSlopeTurns || !has_middle_line(); }
    // Length 1, the normal to the left of the way.
    FittedLine normalised(FittedLine line) const {
        const LatticePoint way = relative(path_[end_]);
        line.normalise();
        if (line.nx * way.y - line.ny * way.x > 0) line.nx = -line.nx, line.ny = -line.ny;
        return line;
    }
    // Least distance of a hinge from the wrong side of a normalised line, at most `kRoom`.
    double room(const FittedLine& line) const {
        double least = kRoom;
        for (Index node = begin_ + 1; node < end_; ++node)
            if (path_.is_corner(node)) {
                const double offset = line.offset(relative(tube_.hinge(path_, node)));
                least = std::min(least, path_.turns_left(node) ? offset : -offset);
            }
        return least;
    }

    // Whether the lines that follow the path have a middle one.
    bool has_middle_line() const { return lines_.bounded(); }
    // Whether the middle one passes within `reach` lattice steps of both ends, in the maximum norm.
    bool middle_line_passes_ends(double reach_begin, double reach_end) const {
        const SlopeAndHeight middle = slope_and_height();
        const auto passes = [&](SeparatingLines::Point p, double reach) {
            const double beside =
                static_cast<double>(p.w) - middle.height - middle.slope * static_cast<double>(p.u);
            return std::abs(beside) <=
                   reach * (2 * kStepParts) * std::max(1., std::abs(middle.slope));
        };
        return passes({0, 0}, reach_begin) &&
               passes(turned(fine(relative(path_[end_]))), reach_end);
    }
    // With points relative to the origin.
    FittedLine middle_line() const {
        const SlopeAndHeight middle = slope_and_height();
        const double slope = middle.slope, w = middle.height / kStepParts;
        const LatticePoint a = unit_step(lower_), b = unit_step(left_of(lower_));
        // Back from (u, w): a * (u - w) / 2 + b * (u + w) / 2.
        const double dx = a.x * (1 - slope) + b.x * (1 + slope);
        const double dy = a.y * (1 - slope) + b.y * (1 + slope);
        return {(b.x - a.x) * w / 2, (b.y - a.y) * w / 2, -dy, dx};
    }

  private:
    bool pass_corner() {
        const Heading in = path_.leaving(end_ - 1), out = path_.leaving(end_);
        const bool left = path_.turns_left(end_);
        if (turns_ == 0) {
            first_run_ = run_;
            set_headings(left ? in : out);
        } else if (left ? in != lower_ : out != lower_) {
            return false; // a third heading
        }
        run_ = 0;
        ++turns_;
        const SeparatingLines::Point hinge = turned(relative(tube_.hinge(path_, end_)));
        return left ? lines_.add_upper(hinge) : lines_.add_lower(hinge);
    }
    SeparatingLines::Point turned(FinePoint p) const {
        return {std::int64_t{p.x} * along_.x + std::int64_t{p.y} * along_.y,
                std::int64_t{p.x} * beside_.x + std::int64_t{p.y} * beside_.y};
    }
    void set_headings(Heading lower) {
        lower_ = lower;
        const LatticePoint a = unit_step(lower), b = unit_step(left_of(lower));
        along_ = {a.x + b.x, a.y + b.y};
        beside_ = b - a;
    }
    // Of the middle line: w = slope * u + height.
    struct SlopeAndHeight {
        double slope;
        double height;
    };
    SlopeAndHeight slope_and_height() const {
        const SeparatingLines::Line &a = lines_.steepest(), &b = lines_.flattest();
        const double slope_a = a.slope(), slope_b = b.slope();
        const double height_a =
            static_cast<double>(a.from.w) - slope_a * static_cast<double>(a.from.u);
        const double height_b =
            static_cast<double>(b.from.w) - slope_b * static_cast<double>(b.from.u);
        return {(slope_a + slope_b) / 2, (height_a + height_b) / 2};
    }

    const ExactPath& path_;
    const Tube& tube_;
    SeparatingLines& lines_;
    const Index begin_;
    const LatticePoint origin_;
    Index end_;
    Index measured_; // the end of what `moments_` has summed
    PathMoments moments_;
    std::int64_t length_ = 0;
    int turns_ = 0;
    Heading lower_ = Heading::East; // of the two headings the one further to the right
    LatticePoint along_{};          // the directions of u and w
    LatticePoint beside_{};
    std::int32_t first_run_ = 0;
    std::int32_t run_ = 0; // since the last turn
};

void StraightPieces::split(const ExactPath& path, bool kept_ends, std::vector<Index>& ends) {
    constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();
    best_.assign(path.size(), {kNone, 0, 0});
    best_[0].pieces = 0;
    for (Index begin = 0; begin < path.last(); ++begin)
        extend_from(path, begin, kept_ends);
    ends.clear();
    for (Index node = path.last(); node > 0; node = best_[node].previous)
        ends.push_back(node);
    ends.push_back(0);
    std::reverse(ends.begin(), ends.end());
}

// Offers the pieces that begin in a node to their ends.
void StraightPieces::extend_from(const ExactPath& path, Index begin, bool kept_ends) {
    const Best& from = best_[begin];
    const std::uint32_t pieces = from.pieces + 1;
    Growth growth(path, tube_, lines_, begin);
    while (growth.grow()) {
        Best& to = best_[growth.end()];
        const bool may_be_better =
            pieces < to.pieces || (pieces == to.pieces && from.residual < to.residual);
        if (!may_be_better || !serves(path, growth, begin, kept_ends)) continue;
        const double residual = from.residual + growth.residual();
        if (pieces < to.pieces || residual < to.residual) to = {pieces, begin, residual};
    }
}

StraightPieces::Index StraightPieces::longest_from(const ExactPath& path, Index begin) {
    Growth growth(path, tube_, lines_, begin);
    Index end = begin + 1;
    while (growth.grow())
        if (serves(path, growth, begin, false)) end = growth.end();
    return end;
}

// Whether what has grown from `begin` may be a piece.
bool StraightPieces::serves(const ExactPath& path, Growth& growth, Index begin,
                            bool kept_ends) const {
    if (growth.straight()) return true;
    if (!growth.shows_slope()) return false;
    const Index end = growth.end();
    const double reach = growth.length() >= kLongPiece
                             ? tube_.radius_in_steps()
                             : std::min(tube_.radius_in_steps(), kPixelSteps / 2 - 1.);
    const double at_begin = kept_ends && begin == 0 ? kKeptEndDistance : reach;
    const double at_end = kept_ends && end == path.last() ? kKeptEndDistance : reach;
    if (growth.has_middle_line() && growth.middle_line_passes_ends(at_begin, at_end)) return true;
    if (!growth.told_by_best_fit()) return false;
    const FittedLine line = growth.moments().fit();
    return line.maximum_norm_distance(growth.relative(path[begin])) <= at_begin &&
           line.maximum_norm_distance(growth.relative(path[end])) <= at_end &&
           growth.room(growth.normalised(line)) >= -kFitBeyond;
}

StraightPiece StraightPieces::piece(const ExactPath& path, Index begin, Index end) {
    Growth growth(path, tube_, lines_, begin);
    while (growth.end() < end)
        growth.grow();
    FittedLine line = growth.normalised(growth.moments().fit());
    if (const double least = growth.room(line); least < kRoom && growth.has_middle_line()) {
        const FittedLine middle = growth.normalised(growth.middle_line());
        if (growth.room(middle) > least) line = middle;
    }
    line.x += path[begin].x;
    line.y += path[begin].y;
    return {begin, end, line, static_cast<double>(growth.length())};
}

} // namespace kelvane
