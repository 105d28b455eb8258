// Straight lines that fit pieces of exact paths. All coordinates are lattice steps.
#pragma once

#include "export/smooth_path.h"

#include <algorithm>
#include <cmath>

namespace kelvane {

/// A line through (`x`, `y`) with the normal (`nx`, `ny`), of any length but 0.
struct FittedLine {
    double x = 0;
    double y = 0;
    double nx = 0;
    double ny = 0;

    /// Signed distance times the normal's length.
    double offset(double px, double py) const { return nx * (px - x) + ny * (py - y); }
    double offset(LatticePoint p) const { return offset(p.x, p.y); }
    double offset(FinePoint p) const {
        return offset(p.x / static_cast<double>(kStepParts), p.y / static_cast<double>(kStepParts));
    }
    double maximum_norm_distance(LatticePoint p) const {
        return std::abs(offset(p)) / (std::abs(nx) + std::abs(ny));
    }
    /// Of the angle to another line, when both are normalised.
    double sine_to(const FittedLine& line) const { return nx * line.ny - ny * line.nx; }
    double cosine_to(const FittedLine& line) const { return nx * line.nx + ny * line.ny; }
    void normalise() {
        const double length = std::sqrt(nx * nx + ny * ny);
        nx /= length;
        ny /= length;
    }
};

/// Length, centre and second moments of a path taken as a wire of even mass.
class PathMoments {
  public:
    void add_link(LatticePoint from, LatticePoint to) {
        const double x0 = from.x, y0 = from.y, x1 = to.x, y1 = to.y;
        const double length = std::abs(x1 - x0) + std::abs(y1 - y0);
        length_ += length;
        x_ += length * (x0 + x1);
        y_ += length * (y0 + y1);
        xx_ += length * (x0 * x0 + x0 * x1 + x1 * x1);
        yy_ += length * (y0 * y0 + y0 * y1 + y1 * y1);
        xy_ += length * ((x0 + x1) * (y0 + y1) + x0 * y0 + x1 * y1);
    }
    double length() const { return length_; }

    /// The moments about the centre of mass.
    struct Central {
        double length = 0;
        double x = 0, y = 0;           // the centre of mass
        double xx = 0, xy = 0, yy = 0; // mean products of the distances from it

        /// The mean squared distance from the line of best fit: the smaller eigenvalue.
        double least_mean_square() const {
            const double difference = xx - yy;
            const double root = std::sqrt(difference * difference + 4 * xy * xy);
            return std::max(0., (xx + yy - root) / 2);
        }
        /// The line of best fit, with the least squared distances; not normalised.
        FittedLine fit() const {
            const double least = least_mean_square();
            // The eigenvector, from the row that cannot vanish.
            if (xx >= yy) return {x, y, -xy, xx - least};
            return {x, y, yy - least, -xy};
        }
        /// Integral of the squared distances from a line over the path.
        double squared_distances(const FittedLine& line) const {
            const double mean = line.offset(x, y);
            const double spread =
                line.nx * line.nx * xx + 2 * line.nx * line.ny * xy + line.ny * line.ny * yy;
            return length * (mean * mean + spread) / (line.nx * line.nx + line.ny * line.ny);
        }
    };
    Central central() const {
        const double x = x_ / (2 * length_), y = y_ / (2 * length_);
        return {length_,
                x,
                y,
                xx_ / (3 * length_) - x * x,
                xy_ / (6 * length_) - x * y,
                yy_ / (3 * length_) - y * y};
    }

  private:
    // Sums over the links, each still to be divided as in `central`.
    double length_ = 0;
    double x_ = 0;
    double y_ = 0;
    double xx_ = 0;
    double xy_ = 0;
    double yy_ = 0;
};

} // namespace kelvane
