// The dialogs for a new size, a palette and the language, the about box and the splash window.
#include "dialogs/dialog_test.h"
#include "dialogs/field_input.h"
#include "dialogs/frmAbout.h"
#include "dialogs/frmLanguage.h"
#include "dialogs/frmNewSize.h"
#include "dialogs/frmPalette.h"
#include "dialogs/frmSplash.h"

namespace kelvane::test {
namespace {

using NewSizeDialog = DialogTest;
using LanguageDialog = DialogTest;
using AboutBox = DialogTest;

std::wstring size_shown(HWND window) {
    return text_of(window, IDC_SIZE_WIDTH) + L" x " + text_of(window, IDC_SIZE_HEIGHT);
}

TEST_F(NewSizeDialog, StartsWithTheLastSizeOrThePicturesOwn) {
    frmNewSize dialog(settings, 300, 100);
    const auto expect_shown = [&](const std::wstring& size, bool ratio) {
        show(dialog, IDCANCEL, [&](HWND window) {
            EXPECT_EQ(size_shown(window), size);
            EXPECT_EQ(is_checked(window, IDC_SIZE_KEEP_RATIO), ratio);
        });
    };
    expect_shown(L"300 x 100", true);
    EXPECT_FALSE(std::filesystem::exists(scratch.ini())) << "Cancel wrote";
    scratch.put("[imageexport]\r\nresx=0\r\nresy=200\r\n");
    expect_shown(L"300 x 100", true);
    scratch.put("[imageexport]\r\nresx=640\r\nresy=200\r\n");
    expect_shown(L"640 x 200", false);
    scratch.put("[imageexport]\r\nresx=601\r\nresy=200\r\n");
    expect_shown(L"601 x 200", true);
}

TEST_F(NewSizeDialog, SidesFollowEachOther) {
    frmNewSize dialog(settings, 300, 100);
    show(dialog, IDCANCEL, [](HWND window) {
        const auto typed = [window](int field, const wchar_t* text) {
            type_text(window, field, text);
            return size_shown(window);
        };
        EXPECT_EQ(typed(IDC_SIZE_WIDTH, L"150"), L"150 x 50");
        EXPECT_EQ(typed(IDC_SIZE_HEIGHT, L"33"), L"99 x 33");
        EXPECT_EQ(typed(IDC_SIZE_WIDTH, L"1"), L"1 x 1");
        EXPECT_EQ(typed(IDC_SIZE_HEIGHT, L"8919"), L"26754 x 8918") << "none beyond the largest";
        EXPECT_EQ(SendDlgItemMessageW(window, IDC_SIZE_HEIGHT, EM_GETSEL, 0, 0), 0x00040004);
        EXPECT_EQ(typed(IDC_SIZE_HEIGHT, L""), L"26754 x ");
        click(window, IDC_SIZE_KEEP_RATIO);
        EXPECT_EQ(typed(IDC_SIZE_WIDTH, L"60"), L"60 x ");
        EXPECT_EQ(typed(IDC_SIZE_HEIGHT, L"60"), L"60 x 60");
        click(window, IDC_SIZE_KEEP_RATIO);
        EXPECT_EQ(size_shown(window), L"60 x 20");
    });
}

TEST_F(NewSizeDialog, RefusesWhatNoPictureHoldsAndStoresTheRest) {
    frmNewSize dialog(settings, 300, 100);
    show(dialog, IDOK, [this](HWND window) {
        click(window, IDC_SIZE_KEEP_RATIO);
        for (const wchar_t* height : {L"0", L"", L"26755", L"99999999999", L"12 x"}) {
            expect_refused(window, IDC_SIZE_HEIGHT, height);
            EXPECT_EQ(GetFocus(), GetDlgItem(window, IDC_SIZE_HEIGHT));
        }
        type_text(window, IDC_SIZE_HEIGHT, L"26754");
    });
    EXPECT_EQ(std::pair(dialog.NewWidth, dialog.NewHeight), std::pair(300, 26754));
    EXPECT_EQ(script.messages().front(), L"Please enter a Width and a Height from 1 to 26754 "
                                         L"Pixels.");
    EXPECT_EQ(stored(L"resx"), L"300");
    EXPECT_EQ(stored(L"resy"), L"26754");
}

TEST(FieldInput, OnlyTheWholeTextIsANumber) {
    EXPECT_EQ(whole_number(L" -12\t"), -12);
    EXPECT_EQ(whole_number(L"2147483647"), 2147483647);
    EXPECT_EQ(decimal_number(L"-,5 "), -0.5);
    for (const wchar_t* text : {L"  ", L"1 2", L"2147483648", L"\x0131", L"\x0661", L"0x10"})
        EXPECT_EQ(whole_number(text), std::nullopt) << testing::PrintToString(text);
    for (const wchar_t* text : {L"1,2,3", L"1.5 mm", L"1e999"})
        EXPECT_EQ(decimal_number(text), std::nullopt) << testing::PrintToString(text);
    EXPECT_EQ(whole_number(L"100", 0, 100), 100);
    EXPECT_EQ(whole_number(L"-1", 0, 100), std::nullopt);
}

struct PaletteDialog : DialogTest {
    const cDIBSection picture = flat_picture(110, 110, 0, 0, 250);
    frmPalette dialog{settings, picture};

    std::wstring saved(const wchar_t* name, const std::string& text) const {
        write_text(scratch / name, text);
        return (scratch / name).wstring();
    }
};

TEST_F(PaletteDialog, BrowsesToAFileAndShowsItsColours) {
    const std::wstring good = saved(L"two.pal", "JASC-PAL\r\n0100\r\n2\r\n255 0 0\r\n0 0 255\r\n");
    show(dialog, IDOK, [&](HWND window) {
        EXPECT_THAT(shown_in(window, IDC_PALETTE_PREVIEW), ElementsAre(RGB(250, 0, 0)));
        type_text(window, IDC_PALETTE_FILE, (scratch / "none.pal").wstring());
        script.expect_file_dialog(L"two.pal"); // in the folder of the field's file
        press(window, IDC_PALETTE_BROWSE);
        EXPECT_EQ(text_of(window, IDC_PALETTE_COUNT), L"2 Colors");
        EXPECT_EQ(shown_at(window, IDC_PALETTE_COLOURS, 3, 3), RGB(255, 0, 0));
        EXPECT_EQ(shown_at(window, IDC_PALETTE_COLOURS, 24 + 3, 3), RGB(0, 0, 255));
        EXPECT_THAT(shown_in(window, IDC_PALETTE_PREVIEW), ElementsAre(RGB(255, 0, 0)));
    });
    EXPECT_EQ(dialog.FileName.wstring(), good);
    EXPECT_FALSE(std::filesystem::exists(scratch.ini())) << "the folder of pictures is not ours";
}

TEST_F(PaletteDialog, RefusesWhatIsNoPalette) {
    const std::wstring broken = saved(L"broken.pal", "0 0 0\r\n0 256 0\r\n");
    const std::wstring empty = saved(L"empty.pal", "JASC-PAL\r\n0100\r\n0\r\n");
    show(dialog, IDCANCEL, [&](HWND window) {
        for (const std::wstring& file :
             {std::wstring(), broken, empty, broken + L".gone", scratch.path().wstring()}) {
            expect_refused(window, IDC_PALETTE_FILE, file);
            EXPECT_EQ(text_of(window, IDC_PALETTE_COUNT), L"");
        }
    });
    const std::wstring error = L"An error occured trying to open this palette: ";
    EXPECT_THAT(script.messages(),
                ElementsAre(L"Please select a Palette File.",
                            error + L"line 2 is not three numbers from 0 to 255",
                            L"This file holds no Colors.", error + L"No such file or directory",
                            error + L"is a folder"));
}

TEST_F(LanguageDialog, SwitchesAtOnceAndOkStoresTheChoice) {
    const struct {
        int entry, button;
        const wchar_t* caption;
        bool changed;
        const wchar_t* stored;
    } kSteps[] = {{1, IDCANCEL, L"&Abbrechen", true, L""}, // German until the program ends
                  {0, IDCANCEL, L"&Cancel", true, L""},
                  {1, IDOK, L"&Abbrechen", true, L"0"},
                  {1, IDOK, L"&Abbrechen", false, L"0"},
                  {0, IDOK, L"&Cancel", true, L"10000"}};
    for (const auto& step : kSteps) {
        frmLanguage dialog(settings);
        show(dialog, step.button, [&step](HWND window) {
            choose_in_list(window, IDC_LANGUAGE, step.entry);
            EXPECT_EQ(text_of(window, IDCANCEL), step.caption) << "not switched at once";
        });
        EXPECT_EQ(dialog.changed, step.changed);
        EXPECT_EQ(language_offset(), step.entry == 1 ? kGermanOffset : kEnglishOffset);
        EXPECT_EQ(settings.ReadIniValue(L"global", L"language"), step.stored);
        EXPECT_EQ(std::filesystem::exists(scratch.ini()), *step.stored != 0) << "Cancel wrote";
    }
}

TEST(SplashWindow, GoesWhenClicked) {
    frmSplash splash(L"1.2.3");
    splash.show_modeless(nullptr);
    EXPECT_EQ(text_of(splash.window(), IDC_SPLASH_VERSION), L"Version 1.2.3");
    SendMessageW(splash.window(), WM_LBUTTONDOWN, 0, 0);
    EXPECT_EQ(splash.window(), nullptr);
}

TEST_F(AboutBox, SaysWhenThereIsNoSystemInformation) {
    frmAbout dialog(L"1.2.3", L"no such program.exe");
    show(dialog, IDOK, [this](HWND window) {
        EXPECT_EQ(text_of(window, IDC_ABOUT_VERSION), L"Version 1.2.3");
        script.expect_message(win::window_text(window) +
                              L" ! [OK]: The system information is not available at this time.");
        press(window, IDC_ABOUT_SYSTEM_INFO);
    });
}

} // namespace
} // namespace kelvane::test
