#include "dialogs/frmSW.h"

#include "dialogs/shown_dialog.h"
#include "settings/scratch_folder.h"
#include "settings/string_table.h"
#include "support/pictures.h"

#include "ids.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <commctrl.h>

namespace kelvane {
namespace {

using test::click;
using test::show;
using test::text_of;

void slide(HWND window, int slider, int position) {
    const HWND control = GetDlgItem(window, slider);
    SendMessageW(control, TBM_SETPOS, TRUE, position);
    SendMessageW(window, WM_HSCROLL, MAKEWPARAM(TB_THUMBTRACK, position),
                 reinterpret_cast<LPARAM>(control));
}

LRESULT position_of(HWND window, int slider) {
    return SendDlgItemMessageW(window, slider, TBM_GETPOS, 0, 0);
}

struct ReductionDialogTest : testing::Test {
    const ScratchFolder scratch;
    const SettingsFile settings = scratch.settings();
    const cDIBSection picture = test::random_picture(300, 200, 1);
    frmSW dialog{settings, picture};

    void store(const wchar_t* key, const wchar_t* value) {
        settings.WriteIniValue(L"imageexport", key, value);
    }
};

TEST_F(ReductionDialogTest, StartsWhereTheLastReductionsWere) {
    store(L"bwval", L"0");
    store(L"bwval2", L"77");
    store(L"bwval3", L"255");
    store(L"bwg", L"1");
    show(
        dialog,
        [](HWND window) {
            EXPECT_EQ(position_of(window, IDC_REDUCE_BRIGHTNESS_LIMIT), 128) << "as designed";
            EXPECT_EQ(position_of(window, IDC_REDUCE_COLOUR_LIMIT), 77);
            EXPECT_EQ(position_of(window, IDC_REDUCE_EDGE_LIMIT), 255);
            EXPECT_FALSE(test::is_checked(window, IDC_REDUCE_RED));
            EXPECT_TRUE(test::is_checked(window, IDC_REDUCE_GREEN));
            EXPECT_FALSE(test::is_checked(window, IDC_REDUCE_BLUE));
            slide(window, IDC_REDUCE_BRIGHTNESS_LIMIT, 0);
            EXPECT_EQ(text_of(window, IDC_REDUCE_LIMIT), L"1") << "0 would mean cancelled";
        },
        IDOK);
    EXPECT_EQ(dialog.result, 1);
    EXPECT_EQ(dialog.limitvalue, 1);
}

TEST_F(ReductionDialogTest, EachReductionHasItsOwnControls) {
    const std::string before = scratch.bytes();
    show(
        dialog,
        [this](HWND window) {
            click(window, IDC_REDUCE_EDGES);
            slide(window, IDC_REDUCE_EDGE_LIMIT, 40);
            click(window, IDC_REDUCE_COLOURS);
            EXPECT_EQ(text_of(window, IDC_REDUCE_LIMIT), L"128");
            EXPECT_TRUE(IsWindowVisible(GetDlgItem(window, IDC_REDUCE_COLOUR_LIMIT)));
            EXPECT_FALSE(IsWindowVisible(GetDlgItem(window, IDC_REDUCE_EDGE_LIMIT)));
            click(window, IDC_REDUCE_BLUE);
            slide(window, IDC_REDUCE_COLOUR_LIMIT, 200);
            ReductionPreview expected(picture);
            expected.update({ReductionKind::Colours, 200, {false, false, true}});
            EXPECT_TRUE(test::same_pixels(dialog.preview().overview(), expected.overview()));
            EXPECT_TRUE(test::same_pixels(dialog.preview().detail(), expected.detail()));
            click(window, IDC_REDUCE_EDGES);
            EXPECT_FALSE(IsWindowEnabled(GetDlgItem(window, IDC_REDUCE_BLUE)));
            EXPECT_EQ(text_of(window, IDC_REDUCE_LIMIT), L"40");
        },
        IDOK);
    EXPECT_EQ(dialog.result, 3);
    EXPECT_EQ(dialog.limitvalue, 40);
    EXPECT_EQ(scratch.bytes(), before) << "settings are written by who reduces";
    show(
        dialog, [](HWND) {}, IDCANCEL);
    EXPECT_EQ(dialog.result, 0);
}

TEST_F(ReductionDialogTest, ColourLimitNeedsAChannel) {
    test::ModalScript script;
    script.expect([&script](HWND window) {
        script.expect_message(IDOK);
        click(window, IDC_REDUCE_COLOURS);
        test::press(window, IDOK);
        click(window, IDC_REDUCE_RED);
        click(window, IDC_REDUCE_GREEN);
        test::press(window, IDOK);
    });
    dialog.show_modal(nullptr);
    EXPECT_THAT(script.messages(), testing::ElementsAre(LoadString(IDS_REDUCE_NO_COLOUR)));
    EXPECT_EQ(dialog.result, 2);
    EXPECT_EQ(dialog.red, 1);
    EXPECT_EQ(dialog.green, 1);
    EXPECT_EQ(dialog.blue, 0);
}

TEST_F(ReductionDialogTest, DraggingOverTheOverviewMovesTheDetail) {
    show(
        dialog,
        [this](HWND window) {
            const auto mouse = [window](UINT message, LONG x, LONG y) {
                POINT place{x, y};
                MapWindowPoints(GetDlgItem(window, IDC_REDUCE_OVERVIEW), window, &place, 1);
                SendMessageW(window, message, MK_LBUTTON, MAKELPARAM(place.x, place.y));
            };
            EXPECT_EQ(dialog.preview().detail_area().left, 40);
            mouse(WM_MOUSEMOVE, 0, 50);
            mouse(WM_LBUTTONDOWN, -5, 50);
            EXPECT_EQ(dialog.preview().detail_area().left, 40) << "pressed outside";
            mouse(WM_LBUTTONDOWN, 100, 50);
            mouse(WM_MOUSEMOVE, -30, 50);
            EXPECT_EQ(dialog.preview().detail_area().left, 0);
            mouse(WM_LBUTTONUP, -30, 50);
            mouse(WM_MOUSEMOVE, 219, 50);
            EXPECT_EQ(dialog.preview().detail_area().left, 0) << "let go";
        },
        IDCANCEL);
}

} // namespace
} // namespace kelvane
