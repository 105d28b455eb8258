#include "image/resample.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace kelvane {
namespace {

// One target coordinate's place between two source samples.
struct Sample {
    int first;
    int second;
    double weight; // of the second sample
};

Sample sample_at(int target, double scale, int source_size) {
    const double position = target * scale;
    const int first = static_cast<int>(position);
    // With a one-pixel side the second sample lies outside and carries no weight.
    return {first, std::min(first + 1, source_size - 1), position - first};
}

std::uint8_t blend(int a, int b, double weight_b) {
    return static_cast<std::uint8_t>(std::nearbyint((1 - weight_b) * a + weight_b * b));
}

} // namespace

void resample_bilinear(ConstImageView from, ImageView to) {
    const double x_scale = static_cast<double>(from.width - 1) / to.width;
    const double y_scale = static_cast<double>(from.height - 1) / to.height;

    std::vector<Sample> columns(static_cast<std::size_t>(to.width));
    for (int x = 0; x < to.width; ++x)
        columns[static_cast<std::size_t>(x)] = sample_at(x, x_scale, from.width);

    // The vertical pass depends on the source column only: it is made once per row, for all.
    std::vector<std::uint8_t> blended(static_cast<std::size_t>(from.width) * 3);
    for (int y = 0; y < to.height; ++y) {
        const Sample line = sample_at(y, y_scale, from.height);
        const std::uint8_t* lower = from.row(line.first);
        const std::uint8_t* upper = from.row(line.second);
        for (std::size_t i = 0; i < blended.size(); ++i)
            blended[i] = blend(lower[i], upper[i], line.weight);

        std::uint8_t* out = to.row(y);
        for (const Sample& column : columns) {
            const std::uint8_t* left = &blended[static_cast<std::size_t>(column.first) * 3];
            const std::uint8_t* right = &blended[static_cast<std::size_t>(column.second) * 3];
            for (int channel = 0; channel < 3; ++channel)
                *out++ = blend(left[channel], right[channel], column.weight);
        }
    }
}

} // namespace kelvane
