#include "dialogs/shrink.h"

#include <cstdint>
#include <vector>

namespace kelvane {
namespace {

// Where part `i` of `parts` equal parts of `size` begins.
int bound(int i, int size, int parts) {
    return static_cast<int>(std::int64_t{i} * size / parts);
}

// Adds a row's bytes to the sums above them.
void add_row(const std::uint8_t* row, std::vector<std::uint32_t>& sums) {
    for (std::size_t i = 0; i < sums.size(); ++i)
        sums[i] += row[i];
}

void write_row(const std::vector<std::uint32_t>& sums, int rows, int from_width, ImageView to,
               int y) {
    std::uint8_t* out = to.row(y);
    for (int x = 0; x < to.width; ++x) {
        const int first = bound(x, from_width, to.width);
        const int end = bound(x + 1, from_width, to.width);
        const std::uint64_t pixels = static_cast<std::uint64_t>(end - first) * rows;
        for (int channel = 0; channel < 3; ++channel) {
            std::uint64_t sum = pixels / 2;
            for (int column = first; column < end; ++column)
                sum += sums[static_cast<std::size_t>(3 * column + channel)];
            *out++ = static_cast<std::uint8_t>(sum / pixels);
        }
    }
}

} // namespace

void shrink_by_average(ConstImageView from, ImageView to) {
    std::vector<std::uint32_t> sums(static_cast<std::size_t>(from.width) * 3);
    for (int y = 0; y < to.height; ++y) {
        const int first = bound(y, from.height, to.height);
        const int end = bound(y + 1, from.height, to.height);
        sums.assign(sums.size(), 0);
        for (int row = first; row < end; ++row)
            add_row(from.row(row), sums);
        write_row(sums, end - first, from.width, to, y);
    }
}

} // namespace kelvane
