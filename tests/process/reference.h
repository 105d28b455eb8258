// Slow, obvious versions of the filters: columns outside, rows inside, one pixel at a time.
#pragma once

#include "process/filter_kernel.h"
#include "process/rank.h"
#include "support/every_level.h"
#include "support/pictures.h"
#include "support/recording_observer.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

namespace kelvane::test {

inline std::uint8_t clamped(std::int64_t value) {
    return static_cast<std::uint8_t>(std::clamp<std::int64_t>(value, 0, 255));
}

using Bgr = std::array<int, 3>;

/// The picture with every pixel the clamped rule(x, y), of type Bgr; the rule captures the pictures
/// that it reads.
template <typename Rule> cDIBSection each_pixel(const cDIBSection& picture, Rule rule) {
    cDIBSection result = picture.Copy();
    for (int x = 0; x < picture.Width(); ++x)
        for (int y = 0; y < picture.Height(); ++y) {
            const Bgr colour = rule(x, y);
            for (std::size_t c = 0; c < 3; ++c)
                result.view().pixel(x, y)[c] = clamped(colour[c]);
        }
    return result;
}

/// The same for a rule(x, y, channel).
template <typename Rule> cDIBSection each_channel(const cDIBSection& picture, Rule rule) {
    return each_pixel(picture, [&](int x, int y) {
        return Bgr{rule(x, y, 0u), rule(x, y, 1u), rule(x, y, 2u)};
    });
}

inline cDIBSection convolved(const cDIBSection& picture, const FilterKernel& kernel) {
    const int h = kernel.half();
    return each_channel(picture, [&](int x, int y, std::size_t c) -> int {
        if (x < h || y < h || x >= picture.Width() - h || y >= picture.Height() - h)
            return picture.view().pixel(x, y)[c];
        std::int64_t sum = 0;
        for (int i = -h; i <= h; ++i)
            for (int j = -h; j <= h; ++j)
                sum += std::int64_t{picture.view().pixel(x + i, y + j)[c]} * kernel.cell(i, j);
        return clamped(std::int64_t{static_cast<std::int32_t>(sum)} / kernel.weight()); // wraps
    });
}

/// Green against red meets every remainder of a grey, exact halves over even and odd ones included.
inline cDIBSection greens_against_reds() {
    return each_pixel(black_picture(256, 256), [](int x, int y) { return Bgr{x ^ y, x, y}; });
}

/// run(image, buffer) makes the expected picture of the image at every processor level.
template <typename Operation>
void expect_at_every_level(const cDIBSection& original, const cDIBSection& expected,
                           Operation run) {
    at_every_level([&] {
        cDIBSection image = original.Copy();
        cDIBSection buffer = random_picture(original.Width(), original.Height(), 8);
        run(image.view(), buffer.view());
        EXPECT_TRUE(same_pixels(image, expected));
    });
}

/// Columns and rows from (x, y) of a picture.
inline cDIBSection window(const cDIBSection& picture, int x, int y, int width, int height) {
    return each_pixel(black_picture(width, height),
                      [&](int i, int j) { return pixel_at(picture, x + i, y + j); });
}

/// A picture of more than 16 megapixels is walked in strips of columns: run(image, buffer,
/// observer) must report progress before it reaches the right half, and give the same result around
/// a strip's edge as for a small picture.
template <typename Operation> void expect_strips(Operation run) {
    struct FirstReport : ProgressObserver {
        std::function<void()> check;
        void Progress(long) override {
            if (check) std::exchange(check, nullptr)();
        }
    };
    constexpr int kWidth = 8 * 500 + 3, kHeight = 4001, kEdge = 500, kMargin = 8;
    const cDIBSection rows = random_picture(kWidth, 64, 3);
    cDIBSection image = black_picture(kWidth, kHeight), buffer = black_picture(kWidth, kHeight);
    for (int y = 0; y < kHeight; ++y)
        std::memcpy(image.view().row(y), rows.view().row(y % 64), std::size_t{3} * kWidth);
    copy_pixels(image.view(), buffer.view());
    FirstReport observer;
    observer.check = [&] {
        EXPECT_TRUE(same_pixels(window(image, 3000, 0, 50, 64), window(rows, 3000, 0, 50, 64)));
    };
    run(image.view(), buffer.view(), &observer);
    EXPECT_FALSE(observer.check);
    cDIBSection small = window(rows, kEdge - 30, 0, 60, 64), small_buffer = small.Copy();
    run(small.view(), small_buffer.view(), nullptr);
    const int inside = 60 - 2 * kMargin;
    EXPECT_TRUE(same_pixels(window(image, kEdge - 30 + kMargin, kMargin, inside, inside),
                            window(small, kMargin, kMargin, inside, inside)));
}

/// Checks the events of run(image, buffer, observer) for a picture of that size.
template <typename Operation>
void expect_events(int width, int height, Operation run, const std::vector<long>& maxima,
                   const std::vector<long>& positions, std::size_t completions = 1) {
    RecordingObserver observer;
    run(random_picture(width, height, 1).view(), random_picture(width, height, 8).view(),
        &observer);
    EXPECT_EQ(observer.maxima, maxima);
    EXPECT_EQ(observer.positions, positions);
    EXPECT_EQ(observer.times.size(), completions);
}

} // namespace kelvane::test
