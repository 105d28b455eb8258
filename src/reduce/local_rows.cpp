#include "reduce/local_rows.h"

#include "base/cpu.h"

namespace kelvane {
namespace {

void advance(const std::uint8_t* enters, const std::uint8_t* leaves, std::uint32_t* columns,
             std::uint32_t* sums, int count) {
    std::uint32_t sum = sums[0];
    for (int x = 0; x < count; ++x) {
        columns[x] += static_cast<std::uint32_t>(enters[x] - leaves[x]);
        sums[x + 1] = sum += columns[x];
    }
}

void compare(const std::uint8_t* greys, const std::uint32_t* sums, int size, int offset,
             std::uint8_t* light, int count) {
    for (int x = 0; x < count; ++x) {
        const auto neighbourhood = static_cast<std::int32_t>(sums[x + size] - sums[x]);
        light[x] = (greys[x] + offset) * size * size <= neighbourhood ? 0 : 255;
    }
}

} // namespace

const LocalRows kBaselineLocalRows{advance, compare};

const LocalRows& local_rows() {
    return fastest(kBaselineLocalRows, kAvx2LocalRows);
}

} // namespace kelvane
