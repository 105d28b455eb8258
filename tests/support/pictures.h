// Pictures for tests: random, flat and drawn ones, and where two of them first differ.
#pragma once

#include "image/bitmap_file.h"
#include "image/dib_section.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace kelvane::test {

/// A black picture; the test fails when there is none to be had.
inline cDIBSection black_picture(int width, int height) {
    cDIBSection picture;
    EXPECT_TRUE(picture.Create(width, height)) << width << " x " << height;
    return picture;
}

inline cDIBSection flat_picture(int width, int height, int blue, int green, int red) {
    cDIBSection picture = black_picture(width, height);
    const std::array<int, 3> colour{blue, green, red};
    for (int y = 0; y < height; ++y)
        for (int byte = 0; byte < 3 * width; ++byte)
            picture.view().row(y)[byte] =
                static_cast<std::uint8_t>(colour[static_cast<std::size_t>(byte % 3)]);
    return picture;
}

/// '#' is a black pixel, anything else white; the first line is the top row.
inline cDIBSection drawn(const std::vector<std::string>& lines) {
    const int height = static_cast<int>(lines.size());
    cDIBSection picture = black_picture(static_cast<int>(lines[0].size()), height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < picture.Width(); ++x)
            if (lines[static_cast<std::size_t>(height - 1 - y)][static_cast<std::size_t>(x)] != '#')
                std::memset(picture.view().pixel(x, y), 255, 3);
    return picture;
}

/// The same bytes for the same seed on every system; every fourth byte is 0 or 255, so that
/// sums reach both ends. The padding at the end of each row is random too.
inline cDIBSection random_picture(int width, int height, std::uint32_t seed) {
    cDIBSection picture = black_picture(width, height);
    std::mt19937 random(seed);
    const std::size_t bytes =
        static_cast<std::size_t>(picture.BytesPerScanLine()) * static_cast<std::size_t>(height);
    for (std::size_t i = 0; i < bytes; ++i) {
        const std::uint32_t draw = random();
        const bool extreme = (draw >> 8) % 4 == 0;
        picture.DIBSectionBitsPtr()[i] =
            static_cast<std::uint8_t>(extreme ? 255 * (draw & 1) : draw);
    }
    return picture;
}

inline std::array<int, 3> pixel_at(const cDIBSection& picture, int x, int y) {
    const std::uint8_t* pixel = picture.view().pixel(x, y);
    return {pixel[0], pixel[1], pixel[2]};
}

/// Saves a picture as failed/TEST-ROLE.bmp below the current folder.
inline void save_failed(const cDIBSection& picture, const std::string& role) {
    const std::string test = testing::UnitTest::GetInstance()->current_test_info()->name();
    const std::filesystem::path file = "failed/" + test + '-' + role + ".bmp";
    std::filesystem::create_directories(file.parent_path()); // names with parameters have a "/"
    if (!picture.empty()) save_bitmap(picture.view(), file);
}

/// Success when the pixels agree, padding apart; else says which pixel differs first, and the
/// pictures are saved for people to look at: the last pair of each test stays.
inline testing::AssertionResult same_pixels(const cDIBSection& actual,
                                            const cDIBSection& expected) {
    const auto failure = [&] {
        save_failed(actual, "actual");
        save_failed(expected, "expected");
        return testing::AssertionFailure();
    };
    if (actual.Width() != expected.Width() || actual.Height() != expected.Height())
        return failure() << actual.Width() << " x " << actual.Height() << " instead of "
                         << expected.Width() << " x " << expected.Height();
    for (int y = 0; y < actual.Height(); ++y)
        for (int x = 0; x < actual.Width(); ++x)
            if (std::memcmp(actual.view().pixel(x, y), expected.view().pixel(x, y), 3) != 0)
                return failure() << "pixel (" << x << ", " << y << ") of " << actual.Width()
                                 << " x " << actual.Height() << " is "
                                 << testing::PrintToString(pixel_at(actual, x, y)) << " instead of "
                                 << testing::PrintToString(pixel_at(expected, x, y))
                                 << " (blue, green, red)";
    return testing::AssertionSuccess();
}

/// `more` and sizes at which the edges of vectors, strips and kernels fall differently.
inline std::vector<std::pair<int, int>> odd_sizes(std::vector<std::pair<int, int>> more = {}) {
    std::vector<std::pair<int, int>> sizes = std::move(more);
    sizes.insert(sizes.end(), {{1, 17}, {17, 1}, {31, 13}, {67, 19}, {301, 11}});
    for (int width = 1; width <= 9; ++width)
        for (const int height : {1, 2, 5, 9})
            sizes.emplace_back(width, height);
    return sizes;
}

} // namespace kelvane::test
