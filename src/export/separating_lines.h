// The straight lines that pass below some points and above others.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kelvane {

/// Keeps track of the lines w = slope * u + height that pass below all upper and above all lower
/// points added so far, or through them. Points come with ascending `u`; adding one takes constant
/// time on average.
///
/// Of the upper points only the lower side of the convex hull can limit a line, of the lower points
/// only the upper side. The steepest line touches a lower point and, further right, an upper point,
/// the flattest an upper point and then a lower one. A new point moves one of the two lines, to the
/// tangent at the other side's hull; what is left of the tangent's point never matters again.
class SeparatingLines {
  public:
    struct Point {
        std::int64_t u;
        std::int64_t w;
    };
    /// A line through two points.
    struct Line {
        Point from;
        Point to;
        double slope() const {
            return static_cast<double>(to.w - from.w) / static_cast<double>(to.u - from.u);
        }
    };

    /// Room for so many points.
    explicit SeparatingLines(std::size_t most_points);
    /// Starts anew, without points.
    void reset();
    /// False when no line is left; the object is then to be reset.
    bool add_upper(Point point);
    bool add_lower(Point point);

    /// Whether lines are limited in both senses, so that there are a steepest and a flattest one.
    bool bounded() const { return has_steepest_ && has_flattest_; }
    const Line& steepest() const { return steepest_; }
    const Line& flattest() const { return flattest_; }

  private:
    // One side of a convex hull: the points from `first` to before `end`. Those further left no
    // longer matter.
    struct Hull {
        std::vector<Point> points;
        std::size_t first = 0;
        std::size_t end = 0;
        bool empty() const { return first == end; }
    };
    template <int kSide> static void append(Hull& hull, Point point);
    template <int kSide> static Point tangent_point(Hull& hull, Point from);

    Hull upper_;
    Hull lower_;
    Line steepest_{};
    Line flattest_{};
    bool has_steepest_ = false;
    bool has_flattest_ = false;
};

} // namespace kelvane
