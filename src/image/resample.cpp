#include "image/resample.h"

#include "image/resample_rows.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace kelvane {
namespace {

// One target coordinate's place between two source samples.
struct Sample {
    int first;
    double weight; // of the sample after it; 0 where there is none
};

Sample sample_at(int target, double scale) {
    const double position = target * scale;
    const int first = static_cast<int>(position);
    return {first, position - first};
}

// The columns of the target: where their left samples begin, and a weight for every byte.
struct Columns {
    std::vector<int> first_byte;
    std::vector<double> weights;
    std::vector<std::int16_t> high, low, second;

    void add(const Sample& sample) {
        const FixedWeight fixed = fixed_weight(sample.weight);
        first_byte.push_back(3 * sample.first);
        weights.insert(weights.end(), 3, sample.weight);
        high.insert(high.end(), 3, fixed.high);
        low.insert(low.end(), 3, fixed.low);
        second.insert(second.end(), 3, fixed.second);
    }
};

Columns columns_of(int from_width, int to_width) {
    const double scale = static_cast<double>(from_width - 1) / to_width;
    Columns columns;
    for (int x = 0; x < to_width; ++x)
        columns.add(sample_at(x, scale));
    return columns;
}

// Pixels are fetched as eight bytes and stored as four, of which the next pixel overwrites one:
// the rows need spare bytes behind. (x86 keeps the first byte lowest.)
constexpr std::size_t kSpare = 4;

// The pixel at each place in `row` and the one after it.
void fetch_pixels(const std::uint8_t* row, const std::vector<int>& first_byte, std::uint8_t* left,
                  std::uint8_t* right) {
    for (const int byte : first_byte) {
        std::uint64_t both;
        std::memcpy(&both, row + byte, 8);
        const auto first = static_cast<std::uint32_t>(both);
        const auto second = static_cast<std::uint32_t>(both >> 24);
        std::memcpy(left, &first, 4);
        std::memcpy(right, &second, 4);
        left += 3;
        right += 3;
    }
}

} // namespace

void resample_bilinear(ConstImageView from, ImageView to) {
    const double y_scale = static_cast<double>(from.height - 1) / to.height;
    const Columns columns = columns_of(from.width, to.width);
    const int from_bytes = 3 * from.width;
    const int to_bytes = 3 * to.width;
    // The vertical pass depends on the source column only: it is made once per row for all source
    // columns. One spare pixel stands for the missing right sample of a picture one pixel wide; its
    // weight is 0.
    std::vector<std::uint8_t> blended(static_cast<std::size_t>(from_bytes) + 3 + kSpare);
    std::vector<std::uint8_t> left(static_cast<std::size_t>(to_bytes) + kSpare);
    std::vector<std::uint8_t> right(left.size());
    const RowWeights weights{columns.weights.data(), columns.high.data(), columns.low.data(),
                             columns.second.data()};
    const ResampleRows& rows = resample_rows();
    for (int y = 0; y < to.height; ++y) {
        const Sample line = sample_at(y, y_scale);
        const int next = std::min(line.first + 1, from.height - 1);
        rows.one_weight(from.row(line.first), from.row(next), blended.data(), from_bytes,
                        line.weight);
        fetch_pixels(blended.data(), columns.first_byte, left.data(), right.data());
        rows.many_weights(left.data(), right.data(), to.row(y), to_bytes, weights);
    }
}

} // namespace kelvane
