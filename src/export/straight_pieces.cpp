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
        lines_.reset(tube.open());
    }

    // Takes the next node in; false when no line follows the path so far.
    bool grow() {
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
    // The middle of the lines that follow the path, with points relative to the origin.
    FittedLine middle_line() const {
        const auto height = [](const SeparatingLines::Line& line) {
            return (static_cast<double>(line.from.w) -
                    line.slope() * static_cast<double>(line.from.u)) /
                   kStepParts;
        };
        const double slope = (lines_.steepest().slope() + lines_.flattest().slope()) / 2;
        const double w = (height(lines_.steepest()) + height(lines_.flattest())) / 2;
        const LatticePoint a = unit_step(lower_), b = unit_step(left_of(lower_));
        // Back from (u, w): a * (u - w) / 2 + b * (u + w) / 2.
        const double dx = a.x * (1 - slope) + b.x * (1 + slope);
        const double dy = a.y * (1 - slope) + b.y * (1 + slope);
        return {(b.x - a.x) * w / 2, (b.y - a.y) * w / 2, -dy, dx};
    }

  private:
    bool pass_corner() {
        const Heading in = path_.leaving(end_ - 1), out = path_.leaving(end_);
        const bool left = left_of(in) == out;
        if (turns_ == 0) {
            first_run_ = run_;
            lower_ = left ? in : out;
        } else if (left ? in != lower_ : out != lower_) {
            return false; // a third heading
        }
        run_ = 0;
        ++turns_;
        const FinePoint hinge = relative(tube_.hinge(path_, end_));
        const LatticePoint a = unit_step(lower_), b = unit_step(left_of(lower_));
        const std::int64_t along = std::int64_t{hinge.x} * a.x + std::int64_t{hinge.y} * a.y;
        const std::int64_t beside = std::int64_t{hinge.x} * b.x + std::int64_t{hinge.y} * b.y;
        const SeparatingLines::Point point{along + beside, beside - along};
        return left ? lines_.add_upper(point) : lines_.add_lower(point);
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
    Heading lower_ = Heading::kEast; // of the two headings the one further to the right
    std::int32_t first_run_ = 0;
    std::int32_t run_ = 0; // since the last turn
};

void StraightPieces::split(const ExactPath& path, Index first, Index last, bool kept_ends,
                           std::vector<Index>& ends) {
    constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();
    best_.assign(last - first + 1, {kNone, 0, 0});
    best_[0].pieces = 0;
    for (Index begin = first; begin < last; ++begin)
        extend_from(path, first, last, begin, kept_ends);
    ends.clear();
    for (Index node = last - first; node > 0; node = best_[node].previous)
        ends.push_back(first + node);
    ends.push_back(first);
    std::reverse(ends.begin(), ends.end());
}

void StraightPieces::extend_from(const ExactPath& path, Index first, Index last, Index begin,
                                 bool kept_ends) {
    const std::uint32_t pieces = best_[begin - first].pieces + 1;
    const double short_limit = std::min(tube_.radius_in_steps(), kPixelSteps / 2 - 1.);
    Growth growth(path, tube_, lines_, begin);
    for (const Index limit = std::min(last, begin + kMostNodes); growth.end() < limit;) {
        if (!growth.grow()) return;
        const Index end = growth.end();
        if (growth.straight()) {
            offer(begin - first, end - first, 0);
            continue;
        }
        if (best_[end - first].pieces < pieces || !growth.shows_slope()) continue;
        const double limit_inside =
            growth.length() >= kLongPiece ? tube_.radius_in_steps() : short_limit;
        const auto passes_ends = [&](const FittedLine& line) {
            const auto passes = [&](Index node, bool kept) {
                return line.maximum_norm_distance(growth.relative(path[node])) <=
                       (kept ? kKeptEndDistance : limit_inside);
            };
            return passes(begin, kept_ends && begin == first) &&
                   passes(end, kept_ends && end == last);
        };
        const auto best_fit_passes = [&] {
            const FittedLine line = growth.moments().fit();
            return passes_ends(line) && growth.room(growth.normalised(line)) >= -kFitBeyond;
        };
        if ((growth.has_middle_line() && passes_ends(growth.middle_line())) ||
            (growth.told_by_best_fit() && best_fit_passes()))
            offer(begin - first, end - first,
                  growth.moments().least_mean_square() * static_cast<double>(growth.length()));
    }
}

void StraightPieces::offer(Index begin, Index end, double residual) {
    const Best& from = best_[begin];
    Best& to = best_[end];
    const double sum = from.residual + residual;
    if (from.pieces + 1 < to.pieces || (from.pieces + 1 == to.pieces && sum < to.residual))
        to = {from.pieces + 1, begin, sum};
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
