// The picture buffer and the bitmap files made of it.
#include "image/bitmap_file.h"

#include "support/pictures.h"

namespace kelvane::test {
namespace {

void expect_empty(const cDIBSection& picture) {
    EXPECT_TRUE(picture.empty() && picture.Width() == 0 && picture.Height() == 0);
}

TEST(DibSection, IsEmptyAfterAFailedCreateAndWhenMovedFrom) {
    for (const auto& [width, height] :
         {std::pair{0, 5}, {5, -1}, {1 << 30, 1}, {1 << 16, 1 << 15}}) {
        cDIBSection picture = black_picture(3, 2);
        EXPECT_FALSE(picture.Create(width, height));
        expect_empty(picture);
    }
    cDIBSection first = black_picture(3, 2), second = std::move(first);
    expect_empty(first);
    first = std::move(second);
    expect_empty(second);
    EXPECT_TRUE(same_pixels(first, black_picture(3, 2)));
}

TEST(BitmapFile, Bytes) {
    cDIBSection picture = black_picture(2, 2);
    for (int byte = 0; byte < 16; ++byte)
        picture.DIBSectionBitsPtr()[byte] = static_cast<std::uint8_t>(byte + 1);
    const std::vector<std::uint8_t> expected{
        'B', 'M', 70, 0, 0, 0, 0, 0, 0, 0,  54, 0,  0,  0,                     // file
        40,  0,   0,  0, 2, 0, 0, 0, 2, 0,  0,  0,  1,  0,  24, 0, 0, 0, 0, 0, // size and kind
        16,  0,   0,  0, 0, 0, 0, 0, 0, 0,  0,  0,  0,  0,  0,  0, 0, 0, 0, 0, // bytes of pixels
        1,   2,   3,  4, 5, 6, 0, 0, 9, 10, 11, 12, 13, 14, 0,  0};
    EXPECT_EQ(encode_bitmap(picture.view()), expected);
}

} // namespace
} // namespace kelvane::test
