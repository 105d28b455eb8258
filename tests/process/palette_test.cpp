// Palette files.
#include "base/file_error.h"
#include "process/palette.h"

#include <gmock/gmock.h>

#include <stdexcept>

namespace kelvane::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST(PaletteFile, TakesLinesOfThreeFieldsOnly) {
    const cPalette palette = parse_palette("JASC-PAL\r\n0100\r\n2\r\n0 1 2\r\n\r\n253 254 255\n4 5 "
                                           "6 \n 4 5 6\r\n1 2\t3\nnot a colour line\n7 8 9");
    ASSERT_EQ(palette.Count(), 3);
    EXPECT_THAT(palette.colours()[0], ElementsAre(0, 1, 2));
    EXPECT_THAT(palette.colours()[1], ElementsAre(253, 254, 255));
    EXPECT_EQ(palette.Blue(3), 9);
    EXPECT_THROW(palette.Red(0), std::out_of_range);
    EXPECT_THROW(palette.Red(4), std::out_of_range);
}

TEST(PaletteFile, FailuresNameTheLineAndLeaveThePaletteEmpty) {
    for (const char* line : {"1 2 256", "1 2 -3", "1  2", "a b c", "1 2 3x", "1 2.5 3", "+1 2 3",
                             "Name: x ", "1 2 3\t", "1 2 3\r\r"}) {
        try {
            parse_palette(std::string("header\n1 2 3\n") + line + "\n");
            FAIL() << line;
        } catch (const FileError& error) {
            EXPECT_THAT(error.what(), HasSubstr("line 3")) << line;
        }
    }
    cPalette palette({{1, 2, 3}});
    EXPECT_FALSE(palette.LoadFromFile("no such file.pal"));
    EXPECT_EQ(palette.Count(), 0);
}

} // namespace
} // namespace kelvane::test
