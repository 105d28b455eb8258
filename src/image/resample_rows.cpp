// Resampling's inner loops for every processor, and the choice between the levels.
#include "image/resample_rows.inl"

#include "base/cpu.h"

#include <cmath>

namespace kelvane {
namespace {

void many_weights(const std::uint8_t* a, const std::uint8_t* b, std::uint8_t* to, int count,
                  const RowWeights& weights) {
    exact_many_weights(a, b, to, count, weights.exact);
}

constexpr ResampleRows kRows{exact_one_weight, many_weights};

} // namespace

FixedWeight fixed_weight(double weight) {
    const auto parts = static_cast<std::int64_t>(std::nearbyint(std::ldexp(weight, 32)));
    const auto low = static_cast<std::int16_t>(parts);
    const std::int64_t high = (parts - low) >> 16; // 0 .. 2^16
    return {static_cast<std::int16_t>(high), low, static_cast<std::int16_t>(-(high >> 15 != 0))};
}

const ResampleRows kBaselineResampleRows = kRows;

const ResampleRows& resample_rows() {
    return fastest(kBaselineResampleRows, kAvx2ResampleRows);
}

} // namespace kelvane
