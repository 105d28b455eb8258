// The picture that every data file holds: four quarters of one colour each.
#pragma once

#include "image/picture_reader.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"

namespace kelvane::test {

/// Top left, top right, bottom left, bottom right; blue, green, red of each.
using Quarters = std::array<std::array<int, 3>, 4>;

constexpr std::array<int, 3> kRed{0, 0, 255};
constexpr std::array<int, 3> kGreen{0, 255, 0};
constexpr std::array<int, 3> kBlue{255, 0, 0};
constexpr std::array<int, 3> kWhite{255, 255, 255};
constexpr Quarters kFourColours{kRed, kGreen, kBlue, kWhite};

inline std::filesystem::path data_file(const std::string& name) {
    return std::filesystem::path(KELVANE_TEST_DATA) / "pictures" / name;
}

inline int largest_difference(const cDIBSection& picture, const Quarters& expected) {
    int largest = 0;
    for (int y = 0; y < picture.Height(); ++y)
        for (int x = 0; x < picture.Width(); ++x) {
            const std::size_t quarter =
                (y < picture.Height() / 2 ? 2U : 0U) + (x >= picture.Width() / 2 ? 1U : 0U);
            for (std::size_t c = 0; c < 3; ++c)
                largest =
                    std::max(largest, std::abs(pixel_at(picture, x, y)[c] - expected[quarter][c]));
        }
    return largest;
}

} // namespace kelvane::test
