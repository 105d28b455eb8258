#include "export/smooth_drawing.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <set>
#include <sstream>

namespace kelvane::test {
namespace {

using Wide = long long;

struct Edge {
    Point a;
    Point b;
};

Wide cross(Point a, Point b, Point c) {
    return Wide(b.x - a.x) * (c.y - a.y) - Wide(b.y - a.y) * (c.x - a.x);
}
Wide dot(Point a, Point b, Point c) {
    return Wide(b.x - a.x) * (c.x - b.x) + Wide(b.y - a.y) * (c.y - b.y);
}
int sign(Wide value) {
    return (value > 0) - (value < 0);
}
bool in_box(Point p, const Edge& e) {
    return std::min(e.a.x, e.b.x) <= p.x && p.x <= std::max(e.a.x, e.b.x) &&
           std::min(e.a.y, e.b.y) <= p.y && p.y <= std::max(e.a.y, e.b.y);
}
bool on_edge(Point p, const Edge& e) {
    return in_box(p, e) && cross(e.a, e.b, p) == 0;
}

bool boxes_apart(const Edge& e, const Edge& f, int distance) {
    const auto apart = [&](int a, int b, int c, int d) {
        return std::max(a, b) + distance < std::min(c, d) ||
               std::max(c, d) + distance < std::min(a, b);
    };
    return apart(e.a.x, e.b.x, f.a.x, f.b.x) || apart(e.a.y, e.b.y, f.a.y, f.b.y);
}

std::vector<Edge> edges_of(const Path& path) {
    std::vector<Edge> edges;
    for (std::size_t i = 0; i < path.size(); ++i)
        edges.push_back({path[i], path[(i + 1) % path.size()]});
    return edges;
}

std::string text(Point p) {
    std::ostringstream out;
    out << " at (" << double(p.x) / kPixel << ' ' << double(p.y) / kPixel << ')';
    return out.str();
}

// Where a drawing touches itself: single points, and overlaps as edges with a < b.
struct Contacts {
    std::set<Point> points;
    std::vector<Edge> overlaps;
};

// All contacts of edges besides the vertices that neighbours share, or the point where two cross.
std::optional<Point> find_contacts(const std::vector<Path>& paths, Contacts& contacts) {
    struct Placed : Edge {
        std::size_t path, index, count;
    };
    std::vector<Placed> all;
    for (std::size_t p = 0; p < paths.size(); ++p) {
        const std::vector<Edge> edges = edges_of(paths[p]);
        for (std::size_t i = 0; i < edges.size(); ++i)
            all.push_back({edges[i], p, i, edges.size()});
    }
    const auto left = [](const Edge& e) { return std::min(e.a.x, e.b.x); };
    std::sort(all.begin(), all.end(),
              [&](const Placed& e, const Placed& f) { return left(e) < left(f); });
    for (std::size_t i = 0; i < all.size(); ++i) {
        const Placed& e = all[i];
        for (std::size_t j = i + 1; j < all.size() && left(all[j]) <= std::max(e.a.x, e.b.x); ++j) {
            const Placed& f = all[j];
            if (boxes_apart(e, f, 0)) continue;
            if (sign(cross(e.a, e.b, f.a)) * sign(cross(e.a, e.b, f.b)) < 0 &&
                sign(cross(f.a, f.b, e.a)) * sign(cross(f.a, f.b, e.b)) < 0)
                return e.a;
            std::set<Point> common;
            for (const Point p : {e.a, e.b})
                if (on_edge(p, f)) common.insert(p);
            for (const Point p : {f.a, f.b})
                if (on_edge(p, e)) common.insert(p);
            if (common.size() == 2)
                contacts.overlaps.push_back({*common.begin(), *common.rbegin()});
            if (common.size() != 1) continue;
            const bool neighbours = e.path == f.path && ((e.index + 1) % e.count == f.index ||
                                                         (f.index + 1) % e.count == e.index);
            if (!neighbours) contacts.points.insert(*common.begin());
        }
    }
    return std::nullopt;
}

std::string contact_fault(const std::vector<Path>& smooth, const std::vector<Path>& exact) {
    Contacts made, allowed;
    if (find_contacts(exact, allowed)) return "the exact drawing crosses itself";
    if (const auto crossing = find_contacts(smooth, made)) return "edges cross" + text(*crossing);
    const auto overlap_at = [&](Point p, Point q) {
        return std::any_of(allowed.overlaps.begin(), allowed.overlaps.end(),
                           [&](const Edge& e) { return on_edge(p, e) && on_edge(q, e); });
    };
    for (const Point p : made.points)
        if (!allowed.points.contains(p) && !overlap_at(p, p)) return "edges touch" + text(p);
    for (const Edge& e : made.overlaps)
        if (!overlap_at(e.a, e.b)) return "edges overlap" + text(e.a);
    return {};
}

std::string shape_fault(const Path& smooth, const Path& exact) {
    const auto lower = [](Point a, Point b) { return std::pair(a.y, a.x) < std::pair(b.y, b.x); };
    const std::size_t count = smooth.size();
    if (*std::min_element(smooth.begin(), smooth.end(), lower) != smooth[0])
        return "does not start at the lowest point" + text(smooth[0]);
    for (std::size_t i = 0; i < count; ++i) {
        const Point a = smooth[i], b = smooth[(i + 1) % count], c = smooth[(i + 2) % count];
        if (a == b) return "equal points in a row" + text(a);
        if (cross(a, b, c) == 0) return (dot(a, b, c) < 0 ? "turns back" : "collinear") + text(b);
    }
    if (sign(doubled_area(smooth)) != sign(doubled_area(exact))) return "turns the other way";
    return {};
}

// How far along an edge. Products stay below 2^63 for pictures of up to 500 pixels.
struct Fraction {
    Wide numerator;
    Wide denominator; // positive
    friend bool operator<(const Fraction& a, const Fraction& b) {
        return a.numerator * b.denominator < b.numerator * a.denominator;
    }
};
using Part = std::pair<Fraction, Fraction>;

// The part of `edge` with values from 0 to `limit` of a linear function that has the values `at_a`
// and `at_b` at its ends.
void clip(Wide at_a, Wide at_b, Wide limit, Part& part) {
    for (const auto& [a, b] : {std::pair(at_a, at_b), std::pair(limit - at_a, limit - at_b)}) {
        if (a >= 0 && b >= 0) continue;
        if (a < 0 && b < 0) part.second = {-1, 1};
        const Fraction zero{a < 0 ? -a : a, std::abs(a - b)};
        if (a < 0) part.first = std::max(part.first, zero);
        if (b < 0) part.second = std::min(part.second, zero);
    }
}

// Of the path's points, one that is further than `reach` from all edges of the other; coordinates
// of both times `scale`.
std::optional<Point> far_point(const Path& path, const Path& other, Wide scale, Wide reach) {
    const std::vector<Edge> others = edges_of(other);
    for (const Edge& edge : edges_of(path)) {
        std::vector<Part> parts;
        for (const Edge& near : others) {
            if (boxes_apart(edge, near, kPixel)) continue;
            Part part{{0, 1}, {1, 1}};
            // The points within reach of an edge in the maximum norm: a hexagon.
            const auto low = [&](int c, int d) { return scale * std::min(c, d) - reach; };
            const auto size = [&](int c, int d) { return scale * std::abs(c - d) + 2 * reach; };
            clip(scale * edge.a.x - low(near.a.x, near.b.x),
                 scale * edge.b.x - low(near.a.x, near.b.x), size(near.a.x, near.b.x), part);
            clip(scale * edge.a.y - low(near.a.y, near.b.y),
                 scale * edge.b.y - low(near.a.y, near.b.y), size(near.a.y, near.b.y), part);
            const Wide width =
                reach * (std::abs(near.b.x - near.a.x) + std::abs(near.b.y - near.a.y));
            clip(scale * cross(near.a, near.b, edge.a) + width,
                 scale * cross(near.a, near.b, edge.b) + width, 2 * width, part);
            if (!(part.second < part.first)) parts.push_back(part);
        }
        std::sort(parts.begin(), parts.end(),
                  [](const Part& a, const Part& b) { return a.first < b.first; });
        Fraction covered{0, 1};
        for (const Part& part : parts)
            if (!(covered < part.first)) covered = std::max(covered, part.second);
        if (parts.empty() || Fraction{0, 1} < parts[0].first || covered < Fraction{1, 1})
            return edge.a;
    }
    return std::nullopt;
}

} // namespace

long long doubled_area(const Path& path) {
    Wide sum = 0;
    for (const Edge& e : edges_of(path))
        sum += Wide(e.a.x) * e.b.y - Wide(e.a.y) * e.b.x;
    return sum;
}

std::string smooth_fault(std::vector<Path> smooth, std::vector<Path> exact, std::size_t strips,
                         double tolerance) {
    if (smooth.size() != exact.size()) return "another number of outlines";
    const std::size_t outlines = exact.size() - strips;
    for (std::vector<Path>* paths : {&smooth, &exact})
        std::sort(paths->begin() + static_cast<std::ptrdiff_t>(outlines), paths->end());
    if (!std::equal(smooth.begin() + static_cast<std::ptrdiff_t>(outlines), smooth.end(),
                    exact.begin() + static_cast<std::ptrdiff_t>(outlines)))
        return "other strips";
    constexpr Wide kScale = 100;
    const Wide reach = std::llround(tolerance * kPixel * kScale);
    for (std::size_t i = 0; i < outlines; ++i) {
        if (const std::string fault = shape_fault(smooth[i], exact[i]); !fault.empty())
            return fault;
        if (const auto far = far_point(smooth[i], exact[i], kScale, reach))
            return "an edge leaves the exact outline" + text(*far);
        if (const auto far = far_point(exact[i], smooth[i], kScale, reach))
            return "the exact outline has no edge near by" + text(*far);
    }
    return contact_fault(smooth, exact);
}

} // namespace kelvane::test
