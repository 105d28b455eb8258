// The picture that every data file holds: four quarters of one colour each.
#pragma once

#include "image/picture_reader.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <string>

namespace kelvane::test {

using Colour = std::array<int, 3>; // red, green, blue
/// Top left, top right, bottom left, bottom right.
using Quarters = std::array<Colour, 4>;

constexpr Colour kRed{255, 0, 0};
constexpr Colour kGreen{0, 255, 0};
constexpr Colour kBlue{0, 0, 255};
constexpr Colour kWhite{255, 255, 255};
constexpr Quarters kFourColours{kRed, kGreen, kBlue, kWhite};

inline std::filesystem::path data_file(const std::string& name) {
    return std::filesystem::path(KELVANE_TEST_DATA) / "pictures" / name;
}

inline int largest_difference(const cDIBSection& picture, const Quarters& expected) {
    const int width = picture.Width();
    const int height = picture.Height();
    int largest = 0;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const std::uint8_t* pixel = picture.view().pixel(x, height - 1 - y);
            const std::size_t quarter = (y >= height / 2 ? 2U : 0U) + (x >= width / 2 ? 1U : 0U);
            for (std::size_t c = 0; c < 3; ++c)
                largest = std::max(largest, std::abs(pixel[2 - c] - expected[quarter][c]));
        }
    return largest;
}

inline void expect_quarters(const std::string& name, int width, int height,
                            const Quarters& expected, int tolerance = 0) {
    SCOPED_TRACE(name);
    try {
        const cDIBSection picture = read_picture(data_file(name));
        EXPECT_EQ(picture.Width(), width);
        EXPECT_EQ(picture.Height(), height);
        EXPECT_LE(largest_difference(picture, expected), tolerance);
    } catch (const FileError& error) {
        ADD_FAILURE() << error.what();
    }
}

} // namespace kelvane::test
