// The data files, and the picture that most of them hold: four quarters of one colour each.
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

using FileBytes = std::vector<std::uint8_t>;

inline FileBytes bytes_of(const std::string& text) {
    return {text.begin(), text.end()};
}

inline FileBytes data_bytes(const std::string& name) {
    return bytes_of(file_text(data_file(name)));
}

/// The bytes with others at offset `at`.
inline FileBytes patched(FileBytes bytes, std::size_t at, const FileBytes& others) {
    std::ranges::copy(others, bytes.begin() + static_cast<std::ptrdiff_t>(at));
    return bytes;
}

/// Why there is no picture; empty when there is one.
inline std::string cause_of(const FileBytes& bytes) {
    try {
        decode_picture(bytes);
    } catch (const FileError& error) {
        return error.what();
    }
    return "";
}

/// Opens with `enough` bytes, which leave out only what follows the picture, and not with fewer.
inline void expect_refused_when_cut(FileBytes bytes, std::size_t enough) {
    bytes.resize(enough);
    EXPECT_EQ(cause_of(bytes), "");
    for (bytes.pop_back(); bytes.size() > 44; bytes.pop_back())
        ASSERT_EQ(cause_of(bytes), "the picture is damaged or cut short") << bytes.size();
    for (; !bytes.empty(); bytes.pop_back()) // may count as another format
        ASSERT_NE(cause_of(bytes), "") << bytes.size();
}

/// The same for a data file that ends with its picture.
inline void expect_refused_when_cut(const std::string& name) {
    SCOPED_TRACE(name);
    expect_refused_when_cut(data_bytes(name), data_bytes(name).size());
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
