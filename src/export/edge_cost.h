// What the searches for the vertices of smooth outlines keep small.
#pragma once

#include "export/fitted_line.h"
#include "export/smooth_path.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace kelvane {

/// An area in halves of a square lattice step, and an integral of squared distances, of one pixel.
inline constexpr double kPixelArea = 2. * kPixelSteps * kPixelSteps;
inline constexpr double kPixelVolume = 1. * kPixelSteps * kPixelSteps * kPixelSteps;

/// The integral of the squared distances between the edge from `v` to `w` and a subpath, in pixels.
/// The vertices are given in the coordinates of the moments.
inline double edge_cost(const PathMoments::Central& moments, LatticePoint v, LatticePoint w) {
    const FittedLine edge{static_cast<double>(v.x), static_cast<double>(v.y),
                          static_cast<double>(v.y - w.y), static_cast<double>(w.x - v.x)};
    return moments.squared_distances(edge) / kPixelVolume;
}

/// Twice the area between the edges from each vertex to the next and the straight way from the
/// first to the last.
inline std::int64_t swept_area(std::span<const SmoothVertex> vertices) {
    std::int64_t area = 0;
    for (std::size_t i = 1; i < vertices.size(); ++i)
        area += cross(vertices[i - 1].at - vertices[0].at, vertices[i].at - vertices[0].at);
    return area;
}

/// Costs of edges, and the area that these have added to an outline or taken from it.
constexpr double total_cost(double edges, std::int64_t area) {
    const double pixels = static_cast<double>(area) / kPixelArea;
    return edges + pixels * pixels;
}

} // namespace kelvane
