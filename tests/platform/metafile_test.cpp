// Metafiles, which only Windows draws.
#include "platform/four_colours.h"

namespace kelvane::test {
namespace {

// Only the middles of the quarters: the exact edge of a filled rectangle depends on GDI.
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

TEST(Metafiles, LongSidesAreReducedTo4096Pixels) {
    // The placeable header's right and lower edge and its units an inch: 100 inches by 1.
    const FileBytes small = data_bytes("placeable.wmf");
    const cDIBSection wide = decode_picture(patched(small, 10, {0x10, 0x27, 100, 0, 100, 0}));
    const cDIBSection tall = decode_picture(patched(small, 10, {100, 0, 0x10, 0x27, 100, 0}));
    EXPECT_EQ(std::pair(wide.Width(), wide.Height()), std::pair(4096, 41));
    EXPECT_EQ(std::pair(tall.Width(), tall.Height()), std::pair(41, 4096));
}

TEST(Metafiles, CutOnesAreRefused) {
    expect_refused_when_cut("placeable.wmf");
    expect_refused_when_cut("drawing.emf");
}

} // namespace
} // namespace kelvane::test
