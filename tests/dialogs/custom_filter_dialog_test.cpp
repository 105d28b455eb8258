#include "dialogs/frmCustomFilter.h"

#include "dialogs/shown_dialog.h"
#include "settings/string_table.h"
#include "support/pictures.h"
#include "win/gdi.h"

#include "ids.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelvane {
namespace {

using test::choose_in_list;
using test::click;
using test::show;
using test::text_of;
using test::type_text;

constexpr int kCentreField = IDC_CUSTOM_CELL + KernelGrid::kCentre;

struct CustomFilterDialogTest : testing::Test {
    cImageProcessDIB engine;
    frmCustomFilter dialog{engine};
};

COLORREF cell_colour(HWND window, int field) {
    const HWND edit = GetDlgItem(window, field);
    RedrawWindow(edit, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    const win::WindowContext context(edit);
    return GetPixel(context.get(), 3, 3);
}

TEST_F(CustomFilterDialogTest, BasesFillTheGridAndTheWeight) {
    const std::pair<int, FilterType> kBases[] = {{2, kBlur},    {3, kBlurMore},
                                                 {4, kSoften},  {5, kSoftenMore},
                                                 {6, kSharpen}, {7, kSharpenMore}};
    for (const auto& [position, type] : kBases) {
        show(
            dialog,
            [position = position](HWND window) {
                type_text(window, IDC_CUSTOM_CELL, L"9");
                choose_in_list(window, IDC_CUSTOM_BASE, position);
                EXPECT_EQ(text_of(window, IDC_CUSTOM_CELL), L"0") << "outside of the kernel";
            },
            IDOK);
        ASSERT_FALSE(dialog.Cancelled);
        const FilterKernel expected = predefined_kernel(type);
        EXPECT_EQ(engine.FilterType(), kCustom);
        ASSERT_EQ(engine.FilterArraySize(), expected.size());
        EXPECT_EQ(engine.FilterWeight(), expected.weight());
        for (int i = -expected.half(); i <= expected.half(); ++i)
            EXPECT_EQ(engine.FilterValue(i, 0), expected.cell(i, 0));
    }
}

TEST_F(CustomFilterDialogTest, FilterComesBackAndRuns) {
    show(
        dialog,
        [](HWND window) {
            click(window, IDC_CUSTOM_AUTO);
            choose_in_list(window, IDC_CUSTOM_BASE, 1);
            type_text(window, kCentreField, L"0");
            type_text(window, kCentreField + 1, L"2");
            type_text(window, IDC_CUSTOM_WEIGHT, L"-2");
        },
        IDOK);
    show(
        dialog,
        [](HWND window) {
            EXPECT_EQ(text_of(window, kCentreField + 1), L"2");
            EXPECT_EQ(text_of(window, IDC_CUSTOM_WEIGHT), L"-2");
            EXPECT_FALSE(test::is_checked(window, IDC_CUSTOM_AUTO));
            type_text(window, IDC_CUSTOM_WEIGHT, L"2");
        },
        IDOK);
    cDIBSection picture = test::random_picture(9, 9, 1);
    const cDIBSection before = picture.Copy();
    cDIBSection buffer = test::black_picture(9, 9);
    ASSERT_TRUE(engine.ProcessImage(picture, buffer));
    EXPECT_EQ(test::pixel_at(picture, 4, 4), test::pixel_at(before, 5, 4)) << "x is to the right";
}

TEST_F(CustomFilterDialogTest, WeightFollowsTheSumWhileTicked) {
    show(
        dialog,
        [](HWND window) {
            type_text(window, IDC_CUSTOM_CELL, L"-5");
            EXPECT_EQ(text_of(window, IDC_CUSTOM_WEIGHT), L"-4");
            type_text(window, IDC_CUSTOM_CELL + 1, L"x");
            type_text(window, IDC_CUSTOM_CELL + 2, L"");
            EXPECT_EQ(text_of(window, IDC_CUSTOM_WEIGHT), L"-4");
            click(window, IDC_CUSTOM_AUTO);
            type_text(window, IDC_CUSTOM_CELL, L"8");
            EXPECT_EQ(text_of(window, IDC_CUSTOM_WEIGHT), L"-4");
            click(window, IDC_CUSTOM_AUTO);
            EXPECT_EQ(text_of(window, IDC_CUSTOM_WEIGHT), L"9");
        },
        IDCANCEL);
    EXPECT_TRUE(dialog.Cancelled);
    EXPECT_EQ(engine.FilterType(), kBlur) << "the engine is as it was";
}

TEST_F(CustomFilterDialogTest, FiltersThatCannotRunAreRefusedAndKept) {
    test::ModalScript script;
    script.expect([&script](HWND window) {
        script.expect_message(IDOK);
        script.expect_message(IDOK);
        script.expect_message(IDOK);
        test::press(window, IDOK);
        type_text(window, kCentreField, L"");
        test::press(window, IDOK);
        choose_in_list(window, IDC_CUSTOM_BASE, 2);
        type_text(window, IDC_CUSTOM_WEIGHT, L"0");
        test::press(window, IDOK);
        EXPECT_EQ(text_of(window, IDC_CUSTOM_CELL + 16), L"1") << "the values are kept";
        test::press(window, IDCANCEL);
    });
    dialog.show_modal(nullptr);
    EXPECT_TRUE(dialog.Cancelled);
    const std::wstring black = LoadString(IDS_CUSTOM_BLACK);
    EXPECT_THAT(script.messages(),
                testing::ElementsAre(LoadString(IDS_CUSTOM_TOO_SMALL), black, black));
}

TEST_F(CustomFilterDialogTest, FieldsTakeDigitsAndControlKeysOnly) {
    show(
        dialog,
        [](HWND window) {
            for (const int id : {kCentreField, IDC_CUSTOM_WEIGHT}) {
                const HWND field = GetDlgItem(window, id);
                type_text(window, id, L"");
                for (const wchar_t key : {L'-', L'a', L'4', L'.', L' ', L'2', L'\b', L'\x00B2'})
                    SendMessageW(field, WM_CHAR, key, 1);
                EXPECT_EQ(text_of(window, id), L"-4");
            }
        },
        IDCANCEL);
}

TEST_F(CustomFilterDialogTest, CellsWithoutPartAreGrey) {
    show(
        dialog,
        [](HWND window) {
            const COLORREF grey = GetSysColor(COLOR_BTNFACE);
            const COLORREF white = GetSysColor(COLOR_WINDOW);
            ASSERT_NE(grey, white);
            EXPECT_EQ(cell_colour(window, kCentreField), white);
            EXPECT_EQ(cell_colour(window, IDC_CUSTOM_CELL), grey);
            type_text(window, IDC_CUSTOM_CELL, L"3");
            EXPECT_EQ(cell_colour(window, IDC_CUSTOM_CELL), white);
            type_text(window, IDC_CUSTOM_CELL, L"-");
            EXPECT_EQ(cell_colour(window, IDC_CUSTOM_CELL), white) << "no number, no change";
            type_text(window, IDC_CUSTOM_CELL, L"0");
            EXPECT_EQ(cell_colour(window, IDC_CUSTOM_CELL), grey);
        },
        IDCANCEL);
}

} // namespace
} // namespace kelvane
