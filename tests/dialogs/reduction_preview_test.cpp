#include "dialogs/reduction_preview.h"

#include "dialogs/shrink.h"
#include "support/pictures.h"

#include <gtest/gtest.h>

namespace kelvane {
namespace {

using test::pixel_at;

const Reduction kEvery[] = {
    {ReductionKind::Brightness, 100, {}},
    {ReductionKind::Colours, 140, {true, false, true}},
    {ReductionKind::Edges, 190, {}},
};

TEST(PreviewSizeTest, LongerSideFillsTheBox) {
    const auto size = [](int width, int height) {
        const PreviewSize fitted = preview_size(width, height);
        return std::pair(fitted.width, fitted.height);
    };
    EXPECT_EQ(size(300, 100), std::pair(220, 73));
    EXPECT_EQ(size(100, 300), std::pair(73, 220));
    EXPECT_EQ(size(50, 50), std::pair(220, 220));
    EXPECT_EQ(size(8, 1), std::pair(220, 28)) << "27.5 goes to the even neighbour";
    EXPECT_EQ(size(8, 3), std::pair(220, 82)) << "82.5 goes to the even neighbour";
    EXPECT_EQ(size(20000, 3), std::pair(220, 1));
}

TEST(ReductionPreviewTest, DetailIsTheReducedPictureWhereverItIs) {
    const cDIBSection picture = test::random_picture(97, 61, 1);
    for (const Reduction& reduction : kEvery) {
        cDIBSection whole = picture.Copy();
        ASSERT_TRUE(reduce_picture(whole, reduction));
        ReductionPreview preview(picture, 20);
        for (const auto& [x, y] : {std::pair(10, 6), std::pair(0, 0), std::pair(19, 12),
                                   std::pair(-50, 500), std::pair(7, 9)}) {
            preview.centre_detail_at(x, y);
            preview.update(reduction);
            const PixelArea& area = preview.detail_area();
            ASSERT_EQ(preview.detail().Width(), 20);
            for (int row = 0; row < 20; ++row)
                for (int column = 0; column < 20; ++column)
                    ASSERT_EQ(pixel_at(preview.detail(), column, row),
                              pixel_at(whole, area.left + column, 61 - area.top - 20 + row))
                        << static_cast<int>(reduction.kind) << " at " << x << ", " << y;
        }
    }
}

TEST(ReductionPreviewTest, OverviewAveragesReducedPixels) {
    // 40 x 40 into 20 x 20: every row takes part, two by two.
    const cDIBSection picture = test::random_picture(40, 40, 2);
    cDIBSection whole = picture.Copy();
    ASSERT_TRUE(reduce_picture(whole, kEvery[1]));
    ReductionPreview preview(picture, 20);
    preview.update(kEvery[1]);
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 20; ++x) {
            int sum = 0;
            for (int i = 0; i < 4; ++i)
                sum += pixel_at(whole, 2 * x + i % 2, 2 * y + i / 2)[0];
            ASSERT_EQ(pixel_at(preview.overview(), x, y)[0], (sum + 2) / 4);
        }
}

TEST(ReductionPreviewTest, EdgesOfALargePictureAreNotThoseOfItsSmallCopy) {
    // A slow ramp has no edges; a small copy of it would be all steps.
    cDIBSection ramp = test::black_picture(2000, 1200);
    for (int y = 0; y < 1200; ++y)
        for (int x = 0; x < 6000; ++x)
            ramp.view().row(y)[x] = static_cast<std::uint8_t>(x / 3 * 255 / 1999);
    ReductionPreview preview(ramp, 220);
    preview.update({ReductionKind::Edges, 60, {}});
    for (int y = 0; y < preview.overview().Height(); ++y)
        for (int x = 1; x < preview.overview().Width(); ++x)
            ASSERT_EQ(pixel_at(preview.overview(), x, y)[0], 255) << x << ", " << y;
}

TEST(ReductionPreviewTest, PicturesOfEverySizeHaveAPreview) {
    for (const auto& [width, height] : test::odd_sizes()) {
        const cDIBSection picture = test::random_picture(width, height, 3);
        ReductionPreview preview(picture, 16);
        preview.update(kEvery[2]);
        EXPECT_EQ(std::max(preview.overview().Width(), preview.overview().Height()), 16);
    }
    const cDIBSection empty;
    ReductionPreview nothing(empty);
    nothing.update(kEvery[0]);
    EXPECT_TRUE(nothing.overview().empty());

    const cDIBSection picture = test::random_picture(8, 8, 4);
    ReductionPreview unreduced(picture, 8);
    unreduced.update({ReductionKind::Colours, 100, {}});
    EXPECT_TRUE(test::same_pixels(unreduced.detail(), picture)) << "no channel is chosen";
}

} // namespace
} // namespace kelvane
