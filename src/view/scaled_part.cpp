#include "view/scaled_part.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

namespace kelvane {
namespace {

constexpr int kWhole = 256; // weight of a pixel that is covered completely

// The pixels of the picture that one pixel of the window covers: all have the weight
// `kWhole` but the first and the last. `last` is inclusive.
struct Cover {
    int first;
    int last;
    int first_weight;
    int last_weight;

    int weight(int pixel) const {
        if (pixel == first) return first_weight;
        return pixel == last ? last_weight : kWhole;
    }
    int sum() const {
        return first == last ? first_weight
                             : first_weight + last_weight + (last - first - 1) * kWhole;
    }
};

// In units of 1/extent pixel window pixel i covers [i * size, (i + 1) * size).
Cover cover_of(const AxisScale& scale, int position) {
    const std::int64_t unit = scale.extent;
    const std::int64_t begin = std::int64_t{position} * scale.size;
    const std::int64_t end = begin + scale.size;
    const std::int64_t first = begin / unit;
    const std::int64_t last = (end - 1) / unit;
    const auto weight = [unit](std::int64_t length) {
        return std::max(static_cast<int>(length * kWhole / unit), 1);
    };
    return {static_cast<int>(first), static_cast<int>(last),
            weight(std::min((first + 1) * unit, end) - begin), weight(end - last * unit)};
}

// `y` counts from the top, rows of a view from the bottom.
template <class View> auto* row_from_top(const View& view, int y) {
    return view.row(view.height - 1 - y);
}

void repeat_pixels(ConstImageView picture, AxisScale across, AxisScale down, int left, int top,
                   ImageView to) {
    std::vector<std::ptrdiff_t> bytes(static_cast<std::size_t>(to.width));
    for (int x = 0; x < to.width; ++x)
        bytes[static_cast<std::size_t>(x)] = std::ptrdiff_t{3} * across.pixel_at(left + x);
    int drawn = -1; // the picture's row that `to` got last
    for (int y = 0; y < to.height; ++y) {
        std::uint8_t* out = row_from_top(to, y);
        const int row = down.pixel_at(top + y);
        if (row == drawn) {
            std::memcpy(out, row_from_top(to, y - 1), static_cast<std::size_t>(to.width) * 3);
            continue;
        }
        const std::uint8_t* in = row_from_top(picture, row);
        for (const std::ptrdiff_t byte : bytes) {
            std::memcpy(out, in + byte, 3);
            out += 3;
        }
        drawn = row;
    }
}

void add_row(const std::uint8_t* row, int weight, std::vector<std::uint32_t>& sums) {
    std::uint32_t* const out = sums.data();
    const std::size_t count = sums.size();
    const auto factor = static_cast<std::uint16_t>(weight);
    for (std::size_t i = 0; i < count; ++i)
        out[i] += static_cast<std::uint16_t>(row[i] * factor);
}

// `sums` begins with the picture's column `from`; each stands for `rows` of weight. Floating point,
// because a division of whole numbers for each byte takes longer than all the rest.
void write_means(const std::vector<std::uint32_t>& sums, int from, int rows,
                 const std::vector<Cover>& columns, std::uint8_t* out) {
    for (const Cover& cover : columns) {
        const std::uint32_t* const first = sums.data() + std::ptrdiff_t{3} * (cover.first - from);
        const std::uint32_t* const last = sums.data() + std::ptrdiff_t{3} * (cover.last - from);
        const float share = 1.0F / (static_cast<float>(cover.sum()) * static_cast<float>(rows));
        const auto first_weight = static_cast<float>(cover.first_weight);
        const auto last_weight = static_cast<float>(first == last ? 0 : cover.last_weight);
        for (int channel = 0; channel < 3; ++channel) {
            std::uint32_t between = 0;
            for (const std::uint32_t* column = first + 3; column < last; column += 3)
                between += column[channel];
            const float sum = first_weight * static_cast<float>(first[channel]) +
                              last_weight * static_cast<float>(last[channel]) +
                              static_cast<float>(kWhole) * static_cast<float>(between);
            *out++ = static_cast<std::uint8_t>(static_cast<int>(sum * share + 0.5F));
        }
    }
}

void average_areas(ConstImageView picture, AxisScale across, AxisScale down, int left, int top,
                   ImageView to) {
    std::vector<Cover> columns;
    for (int x = 0; x < to.width; ++x)
        columns.push_back(cover_of(across, left + x));
    const int from = columns.front().first;
    std::vector<std::uint32_t> sums(static_cast<std::size_t>(columns.back().last - from + 1) * 3);
    for (int y = 0; y < to.height; ++y) {
        const Cover rows = cover_of(down, top + y);
        std::fill(sums.begin(), sums.end(), 0);
        for (int row = rows.first; row <= rows.last; ++row)
            add_row(row_from_top(picture, row) + std::ptrdiff_t{3} * from, rows.weight(row), sums);
        write_means(sums, from, rows.sum(), columns, row_from_top(to, y));
    }
}

} // namespace

void draw_scaled_part(ConstImageView picture, AxisScale across, AxisScale down, int left, int top,
                      ImageView to) {
    if (to.empty()) return;
    const bool shrinks = across.extent < across.size || down.extent < down.size;
    (shrinks ? average_areas : repeat_pixels)(picture, across, down, left, top, to);
}

void draw_scaled(ConstImageView picture, ImageView to) {
    draw_scaled_part(picture, {picture.width, to.width}, {picture.height, to.height}, 0, 0, to);
}

} // namespace kelvane
