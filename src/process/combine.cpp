#include "process/combine.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace kelvane {
namespace {

// 929 parts green and 71 parts blue.
int brightness(const std::uint8_t* pixel) {
    return 929 * pixel[1] + 71 * pixel[0];
}

// Copies the source pixels for which replaces(source brightness, target brightness) holds. All
// three bytes are written either way: a branch per pixel would be mispredicted too often.
template <typename Replaces>
void select_pixels(ConstImageView from, ImageView to, Replaces replaces) {
    for (int y = 0; y < to.height; ++y) {
        const std::uint8_t* source = from.row(y);
        std::uint8_t* target = to.row(y);
        for (int x = 0; x < to.width; ++x, source += 3, target += 3) {
            const bool replaced = replaces(brightness(source), brightness(target));
            for (int channel = 0; channel < 3; ++channel)
                target[channel] = replaced ? source[channel] : target[channel];
        }
    }
}

std::int32_t constant(const SumPart& from, std::int32_t from_offset, const SumPart& to,
                      std::int32_t to_offset) {
    const auto part = [](std::int32_t offset, std::int32_t multiplier) {
        return static_cast<std::uint32_t>(offset) * static_cast<std::uint32_t>(multiplier);
    };
    return static_cast<std::int32_t>(part(from_offset, from.multiplier) +
                                     part(to_offset, to.multiplier));
}

// Multiplies (byte + offset) x multiplier out, which is exact in wrapping arithmetic.
ByteSum byte_sum(const SumPart& from, const SumPart& to) {
    return {from.multiplier,
            to.multiplier,
            {constant(from, from.offset_r, to, to.offset_r),
             constant(from, from.offset_g, to, to.offset_g),
             constant(from, from.offset_g, to, to.offset_b)}};
}

// True when no pixels can take the sum out of 16 signed bits.
bool fits_narrow(const ByteSum& sum) {
    const std::int64_t scaled =
        255 * (std::abs(std::int64_t{sum.from}) + std::abs(std::int64_t{sum.to}));
    return std::all_of(std::begin(sum.constant), std::end(sum.constant),
                       [&](std::int64_t value) { return scaled + std::abs(value) <= 32767; });
}

} // namespace

void AddLightest(ConstImageView from, ImageView to, ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    select_pixels(from, to, [](int source, int target) { return source < target; });
    progress.complete();
}

void AddDarkest(ConstImageView from, ImageView to, ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    select_pixels(from, to, [](int source, int target) { return target < source; });
    progress.complete();
}

ByteAdder::ByteAdder(const SumPart& from_part, const SumPart& to_part)
    : sum_(byte_sum(from_part, to_part)),
      add_(fits_narrow(sum_) ? filter_rows().add_narrow : filter_rows().add_wide) {}

void AddImages(ConstImageView from, ImageView to, const SumPart& from_part, const SumPart& to_part,
               ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    const ByteAdder adder(from_part, to_part);
    for (int y = 0; y < to.height; ++y)
        adder.add(from.row(y), to.row(y), 3 * to.width);
    progress.complete();
}

void Combine(ConstImageView from, ImageView to, const Combination& combination,
             ProgressObserver* observer) {
    switch (combination.type) {
    case CombinationType::AddImages:
        return AddImages(from, to, combination.parts[0], combination.parts[1], observer);
    case CombinationType::AddLightest:
        return AddLightest(from, to, observer);
    case CombinationType::AddDarkest:
        return AddDarkest(from, to, observer);
    }
}

} // namespace kelvane
