#include "dialogs/dialog_test.h"
#include "dialogs/frmSW.h"
#include "dialogs/reduction_preview.h"
#include "dialogs/until_input.h"

namespace kelvane::test {
namespace {

const Reduction kEvery[] = {
    {ReductionKind::Brightness, 100, {}},
    {ReductionKind::Colours, 140, {true, false, true}},
    {ReductionKind::Edges, 190, {}},
    {ReductionKind::Edges, 190, {}, {}, true},
    {ReductionKind::UnevenLight, 0, {}, {9, 3}},
    {ReductionKind::UnevenLight, 0, {}, {15, -20}, true, 4},
    {ReductionKind::Edges, 190, {}, {}, false, 30},
};

TEST(PreviewSizeTest, LongerSideFillsTheBox) {
    // 8 x 1 and 8 x 3 give heights of 27.5 and 82.5, rounded to even.
    const std::array<int, 4> kSizes[] = {{300, 100, 220, 73}, {100, 300, 73, 220},
                                         {50, 50, 220, 220},  {8, 1, 220, 28},
                                         {8, 3, 220, 82},     {20000, 3, 220, 1}};
    for (const auto& [width, height, fitted_width, fitted_height] : kSizes) {
        EXPECT_EQ(preview_size(width, height).width, fitted_width) << width << " x " << height;
        EXPECT_EQ(preview_size(width, height).height, fitted_height) << width << " x " << height;
    }
}

TEST(ReductionPreviewTest, DetailIsTheReducedPictureWhereverItIs) {
    const cDIBSection picture = random_picture(97, 61, 1);
    for (const Reduction& reduction : kEvery) {
        cDIBSection whole = picture.Copy();
        ASSERT_TRUE(cImageProcessDIB().Reduce(whole, reduction));
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
    const cDIBSection picture = random_picture(40, 40, 2);
    cDIBSection whole = picture.Copy();
    ASSERT_TRUE(cImageProcessDIB().Reduce(whole, kEvery[1]));
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
    cDIBSection ramp = black_picture(2000, 1200);
    for (int y = 0; y < 1200; ++y)
        for (int x = 0; x < 6000; ++x)
            ramp.view().row(y)[x] = static_cast<std::uint8_t>(x / 3 * 255 / 1999);
    ReductionPreview preview(ramp, 220);
    preview.update({ReductionKind::Edges, 60, {}});
    for (int y = 0; y < preview.overview().Height(); ++y)
        for (int x = 1; x < preview.overview().Width(); ++x)
            ASSERT_EQ(pixel_at(preview.overview(), x, y)[0], 255) << x << ", " << y;
}

struct StopAtOnce : ProgressObserver {
    void Progress(long /*row*/) override { throw Interrupted(); }
};

TEST(ReductionPreviewTest, StoppedUpdateLeavesBothViews) {
    StopAtOnce stop;
    const cDIBSection picture = random_picture(50, 200, 5);
    ReductionPreview preview(picture, 20), expected(picture, 20);
    for (const Reduction& reduction : {kEvery[0], kEvery[5]}) {
        preview.update(reduction);
        expected.update(reduction);
        EXPECT_THROW(preview.update(kEvery[4], &stop), Interrupted);
        EXPECT_TRUE(same_pixels(preview.overview(), expected.overview()));
        EXPECT_TRUE(same_pixels(preview.detail(), expected.detail()));
    }
}

TEST(ReductionPreviewTest, PicturesOfEverySizeHaveAPreview) {
    for (const auto& [width, height] : odd_sizes()) {
        const cDIBSection picture = random_picture(width, height, 3);
        ReductionPreview preview(picture, 16);
        preview.update(kEvery[2]);
        EXPECT_EQ(std::max(preview.overview().Width(), preview.overview().Height()), 16);
    }
    const cDIBSection empty;
    ReductionPreview nothing(empty);
    nothing.update(kEvery[0]);
    EXPECT_TRUE(nothing.overview().empty());

    const cDIBSection picture = random_picture(8, 8, 4);
    ReductionPreview unreduced(picture, 8);
    unreduced.update({ReductionKind::Colours, 100, {}});
    EXPECT_TRUE(same_pixels(unreduced.detail(), picture)) << "no channel is chosen";
}

struct ReductionDialogTest : DialogTest {
    ReductionDialogTest() { refusal_icon = L'i'; }
    const cDIBSection picture = random_picture(300, 280, 1);
    frmSW dialog{settings, picture};
};

TEST_F(ReductionDialogTest, StartsWhereTheLastReductionsWere) {
    scratch.put("[imageexport]\r\nbwval=256\r\nbwval2=77\r\nbwval3=255\r\nbwg=1\r\n");
    show(dialog, IDOK, [](HWND window) {
        EXPECT_EQ(position_of(window, IDC_REDUCE_BRIGHTNESS_LIMIT), 128) << "as designed";
        EXPECT_EQ(position_of(window, IDC_REDUCE_COLOUR_LIMIT), 77);
        EXPECT_EQ(position_of(window, IDC_REDUCE_EDGE_LIMIT), 255);
        EXPECT_FALSE(is_checked(window, IDC_REDUCE_RED));
        EXPECT_TRUE(is_checked(window, IDC_REDUCE_GREEN));
        EXPECT_FALSE(is_checked(window, IDC_REDUCE_BLUE));
        slide(window, IDC_REDUCE_BRIGHTNESS_LIMIT, 0);
        EXPECT_EQ(text_of(window, IDC_REDUCE_LIMIT), L"1") << "0 would mean cancelled";
    });
    EXPECT_EQ(dialog.result, (Reduction{ReductionKind::Brightness, 1, {false, true, false}}));
}

TEST_F(ReductionDialogTest, EachReductionHasItsOwnControls) {
    scratch.put("[imageexport]\r\nbwr=0\r\n");
    const std::string before = scratch.bytes();
    show(dialog, IDOK, [this](HWND window) {
        click(window, IDC_REDUCE_EDGES);
        slide(window, IDC_REDUCE_EDGE_LIMIT, 40);
        click(window, IDC_REDUCE_COLOURS);
        EXPECT_EQ(text_of(window, IDC_REDUCE_LIMIT), L"128");
        EXPECT_TRUE(is_visible(window, IDC_REDUCE_COLOUR_LIMIT));
        EXPECT_FALSE(is_visible(window, IDC_REDUCE_EDGE_LIMIT));
        click(window, IDC_REDUCE_BLUE);
        slide(window, IDC_REDUCE_COLOUR_LIMIT, 200);
        ReductionPreview expected(picture);
        expected.update({ReductionKind::Colours, 200, {false, false, true}});
        EXPECT_TRUE(same_pixels(dialog.preview().overview(), expected.overview()));
        EXPECT_TRUE(same_pixels(dialog.preview().detail(), expected.detail()));
        click(window, IDC_REDUCE_EDGES);
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(window, IDC_REDUCE_BLUE)));
        EXPECT_EQ(text_of(window, IDC_REDUCE_LIMIT), L"40");
    });
    EXPECT_EQ(dialog.result, (Reduction{ReductionKind::Edges, 40, {false, false, true}}));
    EXPECT_EQ(scratch.bytes(), before) << "settings are written by who reduces";
    show(dialog, IDCANCEL);
    EXPECT_EQ(dialog.result, std::nullopt);
}

TEST_F(ReductionDialogTest, ColourLimitNeedsAChannel) {
    show(dialog, IDOK, [](HWND window) { click(window, IDC_REDUCE_COLOURS); });
    EXPECT_EQ(dialog.result, (Reduction{ReductionKind::Colours, 128, {true, true, true}}));
    scratch.put("[imageexport]\r\nbbb=0\r\n"); // the others are missing
    show(dialog, IDOK, [this](HWND window) {
        click(window, IDC_REDUCE_COLOURS);
        expect_refused(window);
        click(window, IDC_REDUCE_RED);
        click(window, IDC_REDUCE_GREEN);
    });
    EXPECT_THAT(script.messages(), ElementsAre(LoadString(IDS_REDUCE_NO_COLOUR)));
    EXPECT_EQ(dialog.result, (Reduction{ReductionKind::Colours, 128, {true, true, false}}));
}

TEST_F(ReductionDialogTest, LimitFieldSliderAndAutoFollowEachOther) {
    cDIBSection steps = black_picture(90, 10); // greys 0, 60 and 200, as Otsu parts them: up to 60
    for (int y = 0; y < 10; ++y)
        for (int x = 0; x < 270; ++x)
            steps.view().row(y)[x] = x < 120 ? 0 : x < 150 ? 60 : 200;
    frmSW on_steps(settings, steps);
    refusal_icon = L'!';
    show(on_steps, IDOK, [&](HWND window) {
        type_text(window, IDC_REDUCE_LIMIT, L"230");
        EXPECT_EQ(position_of(window, IDC_REDUCE_BRIGHTNESS_LIMIT), 230);
        EXPECT_EQ(pixel_at(on_steps.preview().detail(), 80, 5)[0], 0);
        for (const wchar_t* wrong : {L"", L"0", L"256"}) {
            expect_refused(window, IDC_REDUCE_LIMIT, wrong);
            EXPECT_EQ(position_of(window, IDC_REDUCE_BRIGHTNESS_LIMIT), 230);
        }
        click(window, IDC_REDUCE_AUTO);
        EXPECT_EQ(text_of(window, IDC_REDUCE_LIMIT), L"60");
        EXPECT_EQ(pixel_at(on_steps.preview().detail(), 80, 5)[0], 255);
        EXPECT_EQ(pixel_at(on_steps.preview().detail(), 45, 5)[0], 0);
        click(window, IDC_REDUCE_COLOURS);
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(window, IDC_REDUCE_AUTO)));
        click(window, IDC_REDUCE_BRIGHTNESS);
    });
    EXPECT_EQ(on_steps.result, (Reduction{ReductionKind::Brightness, 60, {true, true, true}}));
    const cDIBSection plain = flat_picture(5, 5, 90, 90, 90);
    frmSW on_plain(settings, plain);
    show(on_plain, IDOK, [](HWND window) { click(window, IDC_REDUCE_AUTO); });
    EXPECT_EQ(on_plain.result->limit, 1) << "0 would mean cancelled";
}

TEST_F(ReductionDialogTest, UnevenLightInvertAndSpecksStartAsStoredAndAreShown) {
    scratch.put("[imageexport]\r\nbwkind=4\r\nbwsize=30\r\nbwoffset=-7\r\nbwinvert=1\r\n"
                "bwspeck=25\r\n");
    refusal_icon = L'!';
    const Channels all{true, true, true};
    show(dialog, IDOK, [&](HWND window) {
        EXPECT_FALSE(is_visible(window, IDC_REDUCE_LIMIT) || is_visible(window, IDC_REDUCE_RED) ||
                     is_visible(window, IDC_REDUCE_BRIGHTNESS_LIMIT));
        EXPECT_EQ(text_of(window, IDC_REDUCE_SIZE), L"31") << "sizes are odd";
        EXPECT_FALSE(IsWindowEnabled(GetDlgItem(window, IDC_REDUCE_SPECK)));
        SendDlgItemMessageW(window, IDC_REDUCE_SIZE, WM_KEYDOWN, VK_UP, 0);
        EXPECT_EQ(text_of(window, IDC_REDUCE_SIZE), L"33");
        for (const wchar_t* wrong : {L"1", L"34", L"1001", L""})
            expect_refused(window, IDC_REDUCE_SIZE, wrong);
        type_text(window, IDC_REDUCE_SIZE, L"9");
        expect_refused(window, IDC_REDUCE_OFFSET, L"-256");
        type_text(window, IDC_REDUCE_OFFSET, L"3");
        click(window, IDC_REDUCE_CLEAN);
        expect_refused(window, IDC_REDUCE_SPECK, L"0");
        type_text(window, IDC_REDUCE_SPECK, L"12");
        ReductionPreview expected(picture);
        expected.update({ReductionKind::UnevenLight, 0, all, {9, 3}, true, 12});
        EXPECT_TRUE(same_pixels(dialog.preview().overview(), expected.overview()));
        EXPECT_TRUE(same_pixels(dialog.preview().detail(), expected.detail()));
    });
    EXPECT_EQ(dialog.result, (Reduction{ReductionKind::UnevenLight, 0, all, {9, 3}, true, 12}));
}

TEST_F(ReductionDialogTest, PreviewOfAllPixelsOfALargePictureFollowsAfterAPause) {
    const cDIBSection large = random_picture(2000, 1100, 6);
    frmSW on_large(settings, large);
    ReductionPreview expected(large);
    const auto shows = [&](const Reduction& reduction) {
        expected.update(reduction);
        return same_pixels(on_large.preview().overview(), expected.overview()) &&
               same_pixels(on_large.preview().detail(), expected.detail());
    };
    const Reduction first{ReductionKind::Brightness, 128, {}, {}, false, 10};
    scratch.put("[imageexport]\r\nbwclean=1\r\n");
    show(on_large, IDCANCEL, [&](HWND window) {
        EXPECT_TRUE(shows(first)) << "at once";
        type_text(window, IDC_REDUCE_SPECK, L"7");
        SendDlgItemMessageW(window, IDC_REDUCE_OVERVIEW, WM_KEYDOWN, VK_UP, 0);
        EXPECT_TRUE(shows(first));
        SendMessageW(window, WM_TIMER, 1, 0);
        expected.move_detail(0, -1);
        EXPECT_TRUE(shows({ReductionKind::Brightness, 128, {}, {}, false, 7}));
        click(window, IDC_REDUCE_CLEAN);
        EXPECT_TRUE(shows({ReductionKind::Brightness, 128})) << "at once";
    });
}

TEST_F(ReductionDialogTest, DraggingAndArrowKeysMoveTheDetail) {
    show(dialog, IDCANCEL, [this](HWND window) {
        const auto mouse = [&](UINT message, LONG x, LONG y) {
            POINT place{x, y};
            MapWindowPoints(GetDlgItem(window, IDC_REDUCE_OVERVIEW), window, &place, 1);
            SendMessageW(window, message, MK_LBUTTON, MAKELPARAM(place.x, place.y));
            return dialog.preview().detail_area().left;
        };
        EXPECT_EQ(mouse(WM_MOUSEMOVE, 0, 50), 40);
        EXPECT_EQ(mouse(WM_LBUTTONDOWN, -5, 50), 40) << "pressed outside";
        mouse(WM_LBUTTONDOWN, 100, 50);
        EXPECT_EQ(mouse(WM_MOUSEMOVE, -30, 50), 0);
        mouse(WM_LBUTTONUP, -30, 50);
        EXPECT_EQ(mouse(WM_MOUSEMOVE, 219, 50), 0) << "let go";

        const HWND overview = GetDlgItem(window, IDC_REDUCE_OVERVIEW);
        EXPECT_EQ(GetFocus(), overview);
        EXPECT_EQ(GetNextDlgTabItem(window, GetDlgItem(window, IDOK), TRUE), overview);
        EXPECT_TRUE(SendMessageW(overview, WM_GETDLGCODE, 0, 0) & DLGC_WANTARROWS);
        const PixelArea& area = dialog.preview().detail_area();
        const std::array<int, 3> kSteps[] = {{VK_RIGHT, 27, 0}, {VK_DOWN, 27, 27},
                                             {VK_DOWN, 27, 54}, {VK_DOWN, 27, 60},
                                             {VK_LEFT, 0, 60},  {VK_UP, 0, 33}};
        for (const auto& [key, left, top] : kSteps) {
            SendMessageW(overview, WM_KEYDOWN, static_cast<WPARAM>(key), 0);
            EXPECT_EQ(std::pair(area.left, area.top), std::pair(left, top)) << key;
        }
        const PixelArea frame = dialog.preview().detail_in_overview();
        const auto is_thick = [&] {
            return shown_at(window, IDC_REDUCE_OVERVIEW, frame.left + 2, frame.top + 2) ==
                   GetSysColor(COLOR_HIGHLIGHT);
        };
        EXPECT_TRUE(is_thick());
        SetFocus(GetDlgItem(window, IDOK));
        EXPECT_FALSE(is_thick());
    });
}

} // namespace
} // namespace kelvane::test
