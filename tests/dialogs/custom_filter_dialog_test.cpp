#include "dialogs/dialog_test.h"
#include "dialogs/frmCustomFilter.h"

namespace kelvane::test {
namespace {

constexpr int kCentreField = IDC_CUSTOM_CELL + KernelGrid::kCentre;

struct CustomFilterDialogTest : DialogTest {
    CustomFilterDialogTest() { refusal_icon = L'i'; }
    cImageProcessDIB engine;
    const cDIBSection picture = flat_picture(110, 110, 40, 40, 40);
    frmCustomFilter dialog{engine, picture};
};

TEST_F(CustomFilterDialogTest, BasesFillTheGridAndTheWeight) {
    int position = 2;
    for (const FilterType type : {kBlur, kBlurMore, kSoften, kSoftenMore, kSharpen, kSharpenMore}) {
        show(dialog, IDOK, [position](HWND window) {
            type_text(window, IDC_CUSTOM_CELL, L"9");
            choose_in_list(window, IDC_CUSTOM_BASE, position);
            EXPECT_EQ(text_of(window, IDC_CUSTOM_CELL), L"0") << "outside of the kernel";
        });
        ++position;
        const FilterKernel expected = predefined_kernel(type);
        EXPECT_EQ(engine.FilterType(), kCustom);
        ASSERT_EQ(engine.FilterArraySize(), expected.size());
        EXPECT_EQ(engine.FilterWeight(), expected.weight());
        for (int i = -expected.half(); i <= expected.half(); ++i)
            EXPECT_EQ(engine.FilterValue(i, 0), expected.cell(i, 0));
    }
}

TEST_F(CustomFilterDialogTest, KernelIsTheSmallestSquareThatHoldsEverything) {
    const std::array<int, 4> kCases[] = {{48, 3, 3, 7}, {26, 2, 0, 5}, {17, 0, -1, 3}};
    for (const auto& [cell, i, j, size] : kCases) {
        show(dialog, IDOK, [field = IDC_CUSTOM_CELL + cell](HWND window) {
            choose_in_list(window, IDC_CUSTOM_BASE, 1);
            type_text(window, field, L"-4");
        });
        EXPECT_EQ(engine.FilterArraySize(), size);
        EXPECT_EQ(engine.FilterValue(i, j), -4) << "the lowest row is the kernel's last";
    }
}

TEST_F(CustomFilterDialogTest, FilterComesBack) {
    show(dialog, IDOK, [](HWND window) {
        click(window, IDC_CUSTOM_AUTO);
        choose_in_list(window, IDC_CUSTOM_BASE, 1);
        type_text(window, kCentreField, L"0");
        type_text(window, kCentreField + 1, L"4");
        EXPECT_THAT(shown_in(window, IDC_CUSTOM_PREVIEW), ElementsAre(RGB(160, 160, 160)));
        type_text(window, kCentreField + 1, L"2");
        type_text(window, IDC_CUSTOM_WEIGHT, L"-2");
    });
    show(dialog, IDCANCEL, [](HWND window) {
        EXPECT_EQ(text_of(window, kCentreField + 1), L"2");
        EXPECT_EQ(text_of(window, IDC_CUSTOM_WEIGHT), L"-2");
        EXPECT_FALSE(is_checked(window, IDC_CUSTOM_AUTO));
    });
}

TEST_F(CustomFilterDialogTest, WeightFollowsTheSumWhileTicked) {
    show(dialog, IDCANCEL, [](HWND window) {
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
    });
    EXPECT_EQ(engine.FilterType(), kBlur) << "the engine is as it was";
}

TEST_F(CustomFilterDialogTest, FiltersThatCannotRunAreRefusedAndKept) {
    show(dialog, IDCANCEL, [this](HWND window) {
        expect_refused(window);
        expect_refused(window, kCentreField, L"");
        choose_in_list(window, IDC_CUSTOM_BASE, 2);
        expect_refused(window, IDC_CUSTOM_WEIGHT, L"0");
        EXPECT_EQ(text_of(window, IDC_CUSTOM_CELL + 16), L"1") << "the values are kept";
    });
    const std::wstring black = LoadString(IDS_CUSTOM_BLACK);
    EXPECT_THAT(script.messages(), ElementsAre(LoadString(IDS_CUSTOM_TOO_SMALL), black, black));
}

TEST_F(CustomFilterDialogTest, FieldsTakeDigitsAndControlKeysOnly) {
    show(dialog, IDCANCEL, [](HWND window) {
        for (const int field : {kCentreField, IDC_CUSTOM_WEIGHT}) {
            type_text(window, field, L"");
            for (const wchar_t key : {L'-', L'a', L'4', L'.', L' ', L'2', L'\b', L'\x00B2'})
                SendDlgItemMessageW(window, field, WM_CHAR, key, 1);
            EXPECT_EQ(text_of(window, field), L"-4");
        }
    });
}

TEST_F(CustomFilterDialogTest, GridIsOneTabStopAndArrowKeysGoFromCellToCell) {
    show(dialog, IDCANCEL, [](HWND window) {
        type_text(window, kCentreField, L"12");
        SendDlgItemMessageW(window, kCentreField, EM_SETSEL, 1, 1); // between the digits
        const std::pair<WPARAM, int> kSteps[] = {
            {VK_RIGHT, 24}, {VK_LEFT, 24}, {VK_LEFT, 24}, {VK_LEFT, 23},  {VK_LEFT, 22},
            {VK_LEFT, 21},  {VK_LEFT, 21}, {VK_UP, 14},   {VK_RIGHT, 15}, {VK_DOWN, 22}};
        for (const auto& [key, cell] : kSteps) {
            SendMessageW(GetFocus(), WM_KEYDOWN, key, 1);
            EXPECT_EQ(GetDlgCtrlID(GetFocus()), IDC_CUSTOM_CELL + cell);
        }
        const HWND base = GetDlgItem(window, IDC_CUSTOM_BASE);
        EXPECT_EQ(GetNextDlgTabItem(window, GetFocus(), FALSE), base);
        EXPECT_EQ(GetNextDlgTabItem(window, base, TRUE), GetFocus());
    });
}

TEST_F(CustomFilterDialogTest, CellsWithoutPartAreGrey) {
    show(dialog, IDCANCEL, [](HWND window) {
        const COLORREF grey = GetSysColor(COLOR_BTNFACE);
        const COLORREF white = GetSysColor(COLOR_WINDOW);
        ASSERT_NE(grey, white);
        EXPECT_EQ(shown_at(window, kCentreField, 3, 3), white);
        EXPECT_EQ(shown_at(window, IDC_CUSTOM_CELL, 3, 3), grey);
        const std::pair<const wchar_t*, COLORREF> kSteps[] = {
            {L"3", white}, {L"-", white}, {L"0", grey}}; // "-" is no number and changes nothing
        for (const auto& [text, colour] : kSteps) {
            type_text(window, IDC_CUSTOM_CELL, text);
            EXPECT_EQ(shown_at(window, IDC_CUSTOM_CELL, 3, 3), colour);
        }
    });
}

} // namespace
} // namespace kelvane::test
