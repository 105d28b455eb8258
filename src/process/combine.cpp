#include "process/combine.h"

#include <cstring>

namespace kelvane {
namespace {

// 929 parts green and 71 parts blue.
int brightness(const std::uint8_t* pixel) {
    return 929 * pixel[1] + 71 * pixel[0];
}

// Copies the source pixels for which replaces(source, target brightness) holds.
template <typename Replaces>
void select_pixels(ConstImageView from, ImageView to, Replaces replaces) {
    for (int y = 0; y < to.height; ++y) {
        const std::uint8_t* source = from.row(y);
        std::uint8_t* target = to.row(y);
        for (int x = 0; x < to.width; ++x, source += 3, target += 3)
            if (replaces(brightness(source), brightness(target))) std::memcpy(target, source, 3);
    }
}

std::uint32_t wrapped(std::int32_t value) {
    return static_cast<std::uint32_t>(value);
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

void AddImages(ConstImageView from, ImageView to, const SumPart& from_part, const SumPart& to_part,
               ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    const std::uint32_t m = wrapped(from_part.multiplier);
    const std::uint32_t n = wrapped(to_part.multiplier);
    const std::uint32_t offsets[3] = {
        wrapped(from_part.offset_r) * m + wrapped(to_part.offset_r) * n,
        wrapped(from_part.offset_g) * m + wrapped(to_part.offset_g) * n,
        wrapped(from_part.offset_g) * m + wrapped(to_part.offset_b) * n,
    };
    for (int y = 0; y < to.height; ++y) {
        const std::uint8_t* source = from.row(y);
        std::uint8_t* target = to.row(y);
        for (int x = 0; x < 3 * to.width; ++x) {
            const auto sum =
                static_cast<std::int32_t>(source[x] * m + target[x] * n + offsets[x % 3]);
            target[x] = static_cast<std::uint8_t>(sum < 0 ? 0 : sum > 255 ? 255 : sum);
        }
    }
    progress.complete();
}

} // namespace kelvane
