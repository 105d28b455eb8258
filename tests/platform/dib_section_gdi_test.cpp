// The picture buffer as GDI sees it.
#include "support/pictures.h"

#include <windows.h>

namespace kelvane::test {
namespace {

TEST(DibSectionGdi, CopiesToAndFromDeviceContextsAndBitmaps) {
    const cDIBSection source = random_picture(5, 4, 1);
    cDIBSection canvas;
    BitmapHandle bitmap = nullptr;
    ASSERT_TRUE(canvas.CreateDIB(source.hdc(), 7, 6, bitmap));
    EXPECT_EQ(bitmap, canvas.hDib());
    // 3 x 2 pixels, from the second column and the second row.
    EXPECT_TRUE(source.PaintPicture(canvas.hdc(), 4, 3, 3, 2, 1, 1));
    EXPECT_TRUE(source.PaintPicture(canvas.hdc(), 4, 3, 3, 2, 1, 1, DSTINVERT));
    EXPECT_TRUE(canvas.LoadPictureBlt(canvas.hdc(), 4, 3, 3, 2));
    cDIBSection copy;
    EXPECT_TRUE(copy.Create(3, 2) && copy.LoadPictureBlt(canvas.hdc(), 4, 3));
    for (int y = 0; y < 2; ++y)
        for (int byte = 0; byte < 9; ++byte) {
            const int inverted = 255 - source.view().pixel(1, 1 + y)[byte];
            EXPECT_EQ(copy.view().row(y)[byte], inverted);
            EXPECT_EQ(canvas.view().row(4 + y)[byte], inverted) << "upper left corner";
        }
    const HDC screen = GetDC(nullptr);
    const HBITMAP picture = CreateCompatibleBitmap(screen, 5, 4);
    const HDC context = CreateCompatibleDC(screen);
    const HGDIOBJ before = SelectObject(context, picture);
    EXPECT_TRUE(source.PaintPicture(context, 0, 0));
    EXPECT_FALSE(copy.CreateFromPicture(nullptr));
    EXPECT_TRUE(copy.empty());
    SelectObject(context, before);
    EXPECT_TRUE(copy.CreateFromPicture(picture));
    EXPECT_TRUE(same_pixels(copy, source));
    DeleteDC(context);
    DeleteObject(picture);
    ReleaseDC(nullptr, screen);
    EXPECT_FALSE(canvas.CreateDIB(nullptr, 0, 6, bitmap));
    EXPECT_EQ(bitmap, nullptr);
}

} // namespace
} // namespace kelvane::test
