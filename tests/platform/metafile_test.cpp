// Metafiles, which only Windows draws.
#include "platform/four_colours.h"

namespace kelvane::test {
namespace {

// Only the middles of the quarters: where a filled rectangle ends is GDI's affair.
void expect_middles(const std::string& name) {
    SCOPED_TRACE(name);
    const cDIBSection picture = read_picture(data_file(name));
    ASSERT_EQ(picture.Width(), 32);
    ASSERT_EQ(picture.Height(), 16);
    for (int quarter = 0; quarter < 4; ++quarter)
        EXPECT_EQ(pixel_at(picture, quarter % 2 == 0 ? 8 : 24, quarter < 2 ? 11 : 3),
                  kFourColours[static_cast<std::size_t>(quarter)])
            << quarter;
}

TEST(Metafiles, AreDrawnOnWhitePaperAtTheirNaturalSize) {
    expect_middles("placeable.wmf");
    expect_middles("drawing.emf");
}

} // namespace
} // namespace kelvane::test
