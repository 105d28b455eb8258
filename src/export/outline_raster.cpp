#include "export/outline_raster.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace kelvane {
namespace {

// Pixels that cover a margin, with one more for rounding.
int margin_pixels(int margin, double scale) {
    return static_cast<int>(std::ceil(margin * scale)) + 1;
}

} // namespace

OutlineRaster::OutlineRaster(int width, int height, int columns, int rows, int margin)
    : x_scale_(static_cast<double>(columns) / width), y_scale_(static_cast<double>(rows) / height),
      margin_columns_(margin_pixels(margin, x_scale_)),
      margin_rows_(margin_pixels(margin, y_scale_)), stride_(columns + 2 * margin_columns_),
      steps_(static_cast<std::size_t>(stride_) *
             static_cast<std::size_t>(rows + 2 * margin_rows_)) {}

void OutlineRaster::add_vertices(std::span<const OutlineVertex> vertices) {
    for (const OutlineVertex& vertex : vertices) {
        const Point point = scaled(vertex);
        if (at_first_)
            first_ = point;
        else
            add_edge(last_, point);
        at_first_ = false;
        last_ = point;
    }
}

OutlineRaster::Point OutlineRaster::scaled(const OutlineVertex& vertex) const {
    return {vertex.x * x_scale_ + margin_columns_, vertex.y * y_scale_ + margin_rows_};
}

// Hands on the parts of the edge between whole numbers of `kAxis`.
template <double OutlineRaster::Point::*kAxis, class Use>
void OutlineRaster::cut_at_whole(const Point& from, const Point& to, Use use) {
    const double begin = from.*kAxis;
    const double end = to.*kAxis;
    const bool up = begin < end;
    Point last = from;
    for (double cut = up ? std::floor(begin) + 1 : std::ceil(begin) - 1; up ? cut < end : cut > end;
         cut += up ? 1 : -1) {
        const double part = (cut - begin) / (end - begin);
        Point next{from.x + part * (to.x - from.x), from.y + part * (to.y - from.y)};
        next.*kAxis = cut;
        use(last, next);
        last = next;
    }
    use(last, to);
}

void OutlineRaster::add_edge(const Point& from, const Point& to) {
    if (from.y == to.y) return;
    cut_at_whole<&Point::y>(from, to, [this](const Point& a, const Point& b) {
        cut_at_whole<&Point::x>(a, b,
                                [this](const Point& c, const Point& d) { add_in_pixel(c, d); });
    });
}

// The dark side is on the left, so to the right of an edge that goes down.
void OutlineRaster::add_in_pixel(const Point& from, const Point& to) {
    const double down = from.y - to.y;
    const double x = (from.x + to.x) / 2;
    const auto column = static_cast<int>(x);
    const auto row = static_cast<int>((from.y + to.y) / 2);
    const double left_of_edge = x - column; // share of the pixel's width
    double* const step = &steps_[static_cast<std::size_t>(row) * static_cast<std::size_t>(stride_) +
                                 static_cast<std::size_t>(column)];
    step[0] += down * (1 - left_of_edge);
    step[1] += down * left_of_edge;
}

void OutlineRaster::draw(ImageView drawing) const {
    constexpr double kWhite = 255;
    for (int y = 0; y < drawing.height; ++y) {
        const double* const row =
            &steps_[static_cast<std::size_t>(y + margin_rows_) * static_cast<std::size_t>(stride_)];
        double inside = 0;
        for (int column = 0; column < margin_columns_ + drawing.width; ++column) {
            inside += row[column];
            if (column < margin_columns_) continue;
            const double light = std::clamp(1 - inside, 0., 1.);
            std::fill_n(drawing.pixel(column - margin_columns_, y), 3,
                        static_cast<std::uint8_t>(std::lround(light * kWhite)));
        }
    }
}

} // namespace kelvane
