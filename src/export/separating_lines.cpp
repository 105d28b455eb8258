#include "export/separating_lines.h"

namespace kelvane {
namespace {

using Point = SeparatingLines::Point;

// Positive when `c` is above the line from `a` to `b`.
std::int64_t above(Point a, Point b, Point c) {
    return (b.u - a.u) * (c.w - a.w) - (b.w - a.w) * (c.u - a.u);
}

} // namespace

SeparatingLines::SeparatingLines(std::size_t most_points) {
    upper_.points.resize(most_points);
    lower_.points.resize(most_points);
}

void SeparatingLines::reset() {
    upper_.first = upper_.end = 0;
    lower_.first = lower_.end = 0;
    has_steepest_ = has_flattest_ = false;
}

// kSide is 1 for the hull of lower points, -1 for that of upper points: the mirror image.
template <int kSide> void SeparatingLines::append(Hull& hull, Point point) {
    Point* const points = hull.points.data();
    std::size_t end = hull.end;
    while (end >= hull.first + 2 && kSide * above(points[end - 2], points[end - 1], point) >= 0)
        --end;
    points[end] = point;
    hull.end = end + 1;
}

template <int kSide> Point SeparatingLines::tangent_point(Hull& hull, Point from) {
    const Point* const points = hull.points.data();
    while (hull.first + 1 < hull.end &&
           kSide * above(points[hull.first], from, points[hull.first + 1]) >= 0)
        ++hull.first;
    return points[hull.first];
}

bool SeparatingLines::add_upper(Point point) {
    if (has_flattest_ && above(flattest_.from, flattest_.to, point) < 0) return false;
    if (!lower_.empty() && (!has_steepest_ || above(steepest_.from, steepest_.to, point) < 0)) {
        steepest_ = {tangent_point<1>(lower_, point), point};
        has_steepest_ = true;
    }
    append<-1>(upper_, point);
    return true;
}

bool SeparatingLines::add_lower(Point point) {
    if (has_steepest_ && above(steepest_.from, steepest_.to, point) > 0) return false;
    if (!upper_.empty() && (!has_flattest_ || above(flattest_.from, flattest_.to, point) > 0)) {
        flattest_ = {tangent_point<-1>(upper_, point), point};
        has_flattest_ = true;
    }
    append<1>(lower_, point);
    return true;
}

} // namespace kelvane
