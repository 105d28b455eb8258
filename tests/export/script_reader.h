// An independent reader of EAGLE scripts: parses the text and draws it, knowing nothing of how it
// was made.
#pragma once

#include "image/image_view.h"

#include <string>
#include <vector>

namespace kelvane::test {

/// Points are in sixteenths of a pixel.
inline constexpr int kPixel = 16;
struct Point {
    int x;
    int y;
    friend auto operator<=>(const Point&, const Point&) = default;
};
using Path = std::vector<Point>;

/// A script taken apart. Polygons and wire chains are closed: the last point is not repeated.
struct Script {
    std::vector<Path> polygons; // in file order, bridge strips included
    std::vector<Path> chains;   // wires
    std::vector<Path> rectangles;
};

/// Reads a script whose pixels have an edge of `size`. Throws `std::runtime_error` at anything that
/// EAGLE would not understand or that is no grid point.
Script parse_script(const std::string& text, double size);

/// A picture of cells: rows bottom first.
class Cells {
  public:
    Cells(int width, int height) : width_(width), height_(height), cells_(size_t(width) * height) {}
    int width() const { return width_; }
    int height() const { return height_; }
    int& at(int x, int y) { return cells_[size_t(y) * width_ + x]; }
    /// 0 outside.
    int get(int x, int y) const {
        return x < 0 || y < 0 || x >= width_ || y >= height_ ? 0 : cells_[size_t(y) * width_ + x];
    }
    friend bool operator==(const Cells&, const Cells&) = default;
    /// One character a cell, top row first: what a failing test prints.
    std::string drawing() const;

  private:
    int width_;
    int height_;
    std::vector<int> cells_;
};

/// The dark pixels that an export of `image` is to draw: all but the run that is lost when the
/// first dark pixel lies at column 1 of row 0.
Cells dark_cells(ConstImageView image);

/// Why `paths` are not outlines that cover `dark` exactly once, or an empty text. Each outline is
/// to be axis-parallel, free of equal and of collinear neighbours, turning anticlockwise or (holes)
/// clockwise, and to meet itself at pixel corners only, without crossing.
std::string coverage_fault(const std::vector<Path>& paths, const Cells& dark);

} // namespace kelvane::test
