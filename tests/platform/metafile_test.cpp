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

// The placeable header's right and lower edge and units per inch, for 100 x 1 inches.
TEST(Metafiles, LongSidesAreReducedTo4096Pixels) {
    const std::string text = file_text(data_file("placeable.wmf"));
    for (const bool tall : {false, true}) {
        std::vector<std::uint8_t> bytes(text.begin(), text.end());
        constexpr std::uint8_t kLong[] = {0x10, 0x27}, kShort[] = {0x64, 0}; // 10000 and 100
        std::ranges::copy(tall ? kShort : kLong, &bytes[10]);
        std::ranges::copy(tall ? kLong : kShort, &bytes[12]);
        std::ranges::copy(kShort, &bytes[14]);
        const cDIBSection picture = decode_picture(bytes);
        EXPECT_EQ(picture.Width(), tall ? 41 : 4096);
        EXPECT_EQ(picture.Height(), tall ? 4096 : 41);
    }
}

TEST(Metafiles, CutOnesAreRefused) {
    for (const char* name : {"placeable.wmf", "drawing.emf"}) {
        const std::string text = file_text(data_file(name));
        for (std::size_t size = 1; size < text.size(); ++size)
            EXPECT_THROW(decode_picture({reinterpret_cast<const std::uint8_t*>(text.data()), size}),
                         FileError)
                << name << ' ' << size;
    }
}

} // namespace
} // namespace kelvane::test
