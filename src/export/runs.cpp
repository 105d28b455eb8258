#include "export/runs.h"

#include <algorithm>
#include <bit>

namespace kelvane {
namespace {

constexpr int kWordPixels = 64;

// Bit i of the result tells whether pixel i is dark; `count` pixels, at most 64.
std::uint64_t dark_bits(const std::uint8_t* blue, int count) {
    std::uint64_t bits = 0;
    for (int i = 0; i < count; ++i)
        bits |= static_cast<std::uint64_t>(blue[3 * i] < kDarkBelow) << i;
    return bits;
}

void append_runs_of_row(const std::uint8_t* row, int width, std::vector<Run>& runs) {
    bool inside = false;
    for (int x = 0; x < width; x += kWordPixels) {
        const std::uint64_t dark = dark_bits(row + 3 * x, std::min(kWordPixels, width - x));
        // A set bit marks a column that differs from its left-hand neighbour.
        std::uint64_t changes = dark ^ (dark << 1 | std::uint64_t{inside});
        for (; changes != 0; changes &= changes - 1) {
            const std::int32_t column = x + std::countr_zero(changes);
            if (inside)
                runs.back().end = column;
            else
                runs.push_back({column, width});
            inside = !inside;
        }
    }
}

bool is_lost(const Run& first_of_all) {
    return first_of_all.begin == 1;
}

} // namespace

RunList RunList::extract(ConstImageView image, ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    progress.init(3L * image.width - 3);
    RunList list;
    list.row_begin_.reserve(static_cast<std::size_t>(image.height) + 1);
    list.row_begin_.push_back(0);
    for (int y = 0; y < image.height; ++y) {
        append_runs_of_row(image.row(y), image.width, list.runs_);
        if (y == 0 && !list.runs_.empty() && is_lost(list.runs_.front()))
            list.runs_.erase(list.runs_.begin());
        list.row_begin_.push_back(list.size());
        progress.at(y);
    }
    return list;
}

std::uint64_t RunList::dark_pixels() const {
    std::uint64_t sum = 0;
    for (const Run& run : runs_)
        sum += static_cast<std::uint64_t>(run.end - run.begin);
    return sum;
}

} // namespace kelvane
