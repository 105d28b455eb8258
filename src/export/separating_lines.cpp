#include "export/separating_lines.h"

namespace kelvane {
namespace {

using Point = SeparatingLines::Point;

// Positive when `c` is above the line from `a` to `b`.
std::int64_t above(Point a, Point b, Point c) {
    return (b.u - a.u) * (c.w - a.w) - (b.w - a.w) * (c.u - a.u);
}

} // namespace

void SeparatingLines::reset(bool strict) {
    upper_.points.clear();
    upper_.first = 0;
    lower_.points.clear();
    lower_.first = 0;
    has_steepest_ = has_flattest_ = false;
    slack_ = strict ? 1 : 0;
}

// kSide is 1 for the hull of lower points, -1 for that of upper points: the mirror image.
template <int kSide> void SeparatingLines::append(Hull& hull, Point point) {
    std::vector<Point>& points = hull.points;
    while (points.size() >= hull.first + 2 &&
           kSide * above(points[points.size() - 2], points.back(), point) >= 0)
        points.pop_back();
    points.push_back(point);
}

template <int kSide> Point SeparatingLines::tangent_point(Hull& hull, Point from) {
    const std::vector<Point>& points = hull.points;
    while (hull.first + 1 < points.size() &&
           kSide * above(points[hull.first], from, points[hull.first + 1]) >= 0)
        ++hull.first;
    return points[hull.first];
}

bool SeparatingLines::add_upper(Point point) {
    if (has_flattest_ && above(flattest_.from, flattest_.to, point) < slack_) return false;
    if (lower_.first < lower_.points.size() &&
        (!has_steepest_ || above(steepest_.from, steepest_.to, point) < 0)) {
        steepest_ = {tangent_point<1>(lower_, point), point};
        has_steepest_ = true;
    }
    append<-1>(upper_, point);
    return true;
}

bool SeparatingLines::add_lower(Point point) {
    if (has_steepest_ && above(steepest_.from, steepest_.to, point) > -slack_) return false;
    if (upper_.first < upper_.points.size() &&
        (!has_flattest_ || above(flattest_.from, flattest_.to, point) > 0)) {
        flattest_ = {tangent_point<-1>(upper_, point), point};
        has_flattest_ = true;
    }
    append<1>(lower_, point);
    return true;
}

} // namespace kelvane
