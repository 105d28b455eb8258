// The resolution in the bytes of picture files.
#include "image/resolution.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace kelvane::test {
namespace {

using namespace std::string_literals;

// "300 x 150" or "none".
std::string found(const std::string& file) {
    const std::vector<std::uint8_t> bytes(file.begin(), file.end());
    const auto resolution = file_resolution(bytes);
    if (!resolution) return "none";
    const auto rounded = [](double dpi) { return std::to_string(std::lround(dpi)); };
    return rounded(resolution->x) + " x " + rounded(resolution->y);
}

std::string png(const std::string& x, const std::string& y, char unit) {
    return "\x89PNG\r\n\x1A\n\0\0\0\x09pHYs"s + x + y + unit + "\0\0\0\0"s;
}

// Two fractions, 11811 / 1 and 5906 / 1 per unit 3 (cm) with `unit` 3.
std::string tiff(char unit, char divisor = 100) {
    return "II*\0\x08\0\0\0\x03\0"
           "\x1A\x01\x05\0\x01\0\0\0\x32\0\0\0"
           "\x1B\x01\x05\0\x01\0\0\0\x3A\0\0\0"
           "\x28\x01\x03\0\x01\0\0\0"s +
           unit + "\0\0\0\0\0\0\0"s + "\x23\x2E\0\0"s + divisor + "\0\0\0"s + "\x12\x17\0\0"s +
           divisor + "\0\0\0"s;
}

std::string jpeg(char unit, const std::string& exif = "") {
    const std::string app1 =
        exif.empty() ? "" : "\xFF\xE1\0"s + static_cast<char>(exif.size() + 8) + "Exif\0\0"s + exif;
    return "\xFF\xD8\xFF\xE0\0\x10JFIF\0\1\1"s + unit + "\1\x2C\0\x96\0\0"s + app1 + "\xFF\xD9"s;
}

std::string bitmap(const std::string& x) {
    return "BM"s + std::string(12, '\0') + "\x28\0\0\0"s + std::string(20, '\0') + x +
           "\x13\x0B\0\0"s + std::string(8, '\0');
}

TEST(Resolution, OfEveryFormat) {
    EXPECT_EQ(found(png("\0\0\x2E\x23"s, "\0\0\x17\x12"s, 1)), "300 x 150");
    EXPECT_EQ(found(tiff(2)), "118 x 59");
    EXPECT_EQ(found(tiff(3)), "300 x 150");
    EXPECT_EQ(found(jpeg(1)), "300 x 150");
    EXPECT_EQ(found(jpeg(2)), "762 x 381");
    EXPECT_EQ(found(jpeg(0, tiff(3))), "300 x 150");
    EXPECT_EQ(found(jpeg(1, tiff(2))), "300 x 150"); // JFIF first
    EXPECT_EQ(found(bitmap("\x23\x2E\0\0"s)), "300 x 72");
}

TEST(Resolution, NoneWhereNothingSensibleIsSaid) {
    EXPECT_EQ(found(png("\0\0\x2E\x23"s, "\0\0\x17\x12"s, 0)), "none");
    EXPECT_EQ(found(png("\xFF\xFF\xFF\xFF"s, "\0\0\x17\x12"s, 1)), "none");
    EXPECT_EQ(found(tiff(1)), "none");
    EXPECT_EQ(found(tiff(3, 0)), "none");
    EXPECT_EQ(found(jpeg(0)), "none");
    EXPECT_EQ(found(bitmap("\0\0\0\0"s)), "none");
    EXPECT_EQ(found(bitmap("\xFF\xFF\xFF\xFF"s)), "none");
    EXPECT_EQ(found("GIF89a"), "none");
    // With sanitizers: no read beyond the end of a file cut anywhere.
    for (const std::string& whole :
         {png("\0\0\x2E\x23"s, "\0\0\x17\x12"s, 1), tiff(3), jpeg(0, tiff(3))})
        for (std::size_t size = 0; size + 3 < whole.size(); ++size)
            EXPECT_EQ(found(whole.substr(0, size)), "none") << size;
}

} // namespace
} // namespace kelvane::test
