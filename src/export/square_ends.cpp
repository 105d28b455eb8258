#include "export/square_ends.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace kelvane {
namespace {

// Shorter ends keep their lines; the sides are longer by this factor at least. Lengths are those
// along the path.
constexpr double kShortestEnd = 8 * kPixelSteps;
constexpr double kSideToEnd = 1.5;
// The end consists of so many pieces at most.
constexpr std::size_t kMostPieces = 4;
// A piece next to a corner that may be what is left of the corner itself.
constexpr double kCornerPiece = 3 * kPixelSteps;

// The sine of the angle between sides that count as parallel, and how much the way from one end of
// a piece to the other may differ from the right angle.
constexpr double kParallel = .02;
constexpr double kRightAngle = .1;

// The direction of a bar whose sides run to and fro; none when they are not parallel.
std::optional<FittedLine> direction_of_bar(const StraightPiece& to, const StraightPiece& fro) {
    const FittedLine &a = to.line, &b = fro.line;
    if (a.cosine_to(b) > 0 || std::abs(a.sine_to(b)) > kParallel) return std::nullopt;
    const double wa = to.length * to.length, wb = fro.length * fro.length;
    FittedLine side{0, 0, wa * a.nx - wb * b.nx, wa * a.ny - wb * b.ny};
    side.normalise();
    return side;
}

// The line across a bar that follows a path from one node to another; none when none does.
std::optional<FittedLine> line_across(const ExactPath& path, const Tube& tube,
                                      const FittedLine& side, ExactPath::Index begin,
                                      ExactPath::Index end) {
    const LatticePoint way = path[end] - path[begin];
    const double length = std::hypot(way.x, way.y);
    // The side runs along (ny, -nx), its normal being on the left of the way. Offsets are from the
    // origin until the line has its place.
    FittedLine line{0, 0, side.ny, -side.nx};
    const double across = line.nx * way.y - line.ny * way.x;
    if (std::abs(line.offset(way)) > kRightAngle * length) return std::nullopt;
    if (across > 0) line.nx = -line.nx, line.ny = -line.ny;

    double least = -std::numeric_limits<double>::infinity();
    double most = std::numeric_limits<double>::infinity();
    PathMoments moments;
    for (ExactPath::Index node = begin; node < end; ++node) {
        moments.add_link(path[node] - path[begin], path[node + 1] - path[begin]);
        if (node == begin || !path.is_corner(node)) continue;
        const FinePoint hinge = tube.hinge(path, node);
        const double at = line.offset(static_cast<double>(hinge.x), hinge.y) / kStepParts;
        if (path.turns_left(node))
            most = std::min(most, at);
        else
            least = std::max(least, at);
    }
    if (least > most) return std::nullopt;
    const PathMoments::Central centre = moments.central();
    const double wanted = line.offset(centre.x + path[begin].x, centre.y + path[begin].y);
    const double offset = std::clamp(wanted, least, most);
    line.x = offset * line.nx;
    line.y = offset * line.ny;
    const double reach = tube.radius_in_steps();
    if (line.maximum_norm_distance(path[begin]) > reach) return std::nullopt;
    if (line.maximum_norm_distance(path[end]) > reach) return std::nullopt;
    return line;
}

class EndSquarer {
  public:
    EndSquarer(const ExactPath& path, const Tube& tube, bool ring,
               std::vector<StraightPiece>& pieces)
        : path_(path), tube_(tube), ring_(ring), pieces_(pieces) {}

    void run() {
        for (std::size_t first = ring_ ? 0 : 1; first < pieces_.size(); ++first) {
            double length = 0;
            for (std::size_t last = first; last < pieces_.size() && last < first + kMostPieces;
                 ++last) {
                length += pieces_[last].length;
                if (square(first, last, length)) break;
            }
        }
    }

  private:
    // Squares the pieces from `first` to `last`.
    bool square(std::size_t first, std::size_t last, double length) {
        const std::size_t count = pieces_.size();
        if (length < kShortestEnd || last - first + 3 > count) return false;
        if (!ring_ && last + 1 == count) return false;
        const StraightPiece& to = pieces_[first == 0 ? count - 1 : first - 1];
        const StraightPiece& fro = pieces_[last + 1 == count ? 0 : last + 1];
        if (std::min(to.length, fro.length) < kSideToEnd * length) return false;
        const std::optional<FittedLine> side = direction_of_bar(to, fro);
        if (!side) return false;
        // With what is left of the corners, or without.
        for (const std::size_t begin : {first, first + 1})
            for (const std::size_t end : {last, last - 1}) {
                if (begin > end || end > last) continue;
                if (begin > first && pieces_[first].length > kCornerPiece) continue;
                if (end < last && pieces_[last].length > kCornerPiece) continue;
                if (join(*side, begin, end)) return true;
            }
        mark(*side, first, last, length);
        return false;
    }

    // Where no line across follows the pieces, the longest tells at least which way the end faces.
    void mark(const FittedLine& side, std::size_t first, std::size_t last, double length) {
        StraightPiece* longest = &pieces_[first];
        for (std::size_t i = first + 1; i <= last; ++i)
            if (pieces_[i].length > longest->length) longest = &pieces_[i];
        if (2 * longest->length < length) return;
        const FittedLine& line = longest->line;
        FittedLine across{line.x, line.y, side.ny, -side.nx};
        if (std::abs(across.sine_to(line)) > kRightAngle) return;
        if (across.cosine_to(line) < 0) across.nx = -across.nx, across.ny = -across.ny;
        longest->across = across;
    }

    bool join(const FittedLine& side, std::size_t begin, std::size_t end) {
        StraightPiece& piece = pieces_[begin];
        const auto line = line_across(path_, tube_, side, piece.begin, pieces_[end].end);
        if (!line) return false;
        piece.line = *line;
        piece.across = *line;
        piece.squared = true;
        piece.end = pieces_[end].end;
        for (std::size_t i = begin + 1; i <= end; ++i)
            piece.length += pieces_[i].length;
        pieces_.erase(pieces_.begin() + static_cast<std::ptrdiff_t>(begin) + 1,
                      pieces_.begin() + static_cast<std::ptrdiff_t>(end) + 1);
        return true;
    }

    const ExactPath& path_;
    const Tube& tube_;
    const bool ring_;
    std::vector<StraightPiece>& pieces_;
};

} // namespace

void square_ends(const ExactPath& path, const Tube& tube, bool ring,
                 std::vector<StraightPiece>& pieces) {
    EndSquarer(path, tube, ring, pieces).run();
}

} // namespace kelvane
