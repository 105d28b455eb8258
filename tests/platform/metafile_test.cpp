// Metafiles, which only Windows draws.
#include "image/picture_reader.h"

#include <gtest/gtest.h>

namespace kelvane {
namespace {

TEST(PictureReader, DrawsMetafilesOnWhitePaper) {
    const cDIBSection drawing = read_picture(std::filesystem::path(KELVANE_TEST_DATA) / "pictures" /
                                             "drawing.wmf"); // 1 x 1/2 inch
    EXPECT_NEAR(drawing.Width(), 96, 1);
    EXPECT_NEAR(drawing.Height(), 48, 1);
    EXPECT_EQ(*drawing.view().pixel(10, 24), 0);
    EXPECT_EQ(*drawing.view().pixel(38, 40), 0);
    EXPECT_EQ(*drawing.view().pixel(58, 24), 255);
}

} // namespace
} // namespace kelvane
