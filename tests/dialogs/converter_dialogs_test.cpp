// The dialogs around opening by the converter.
#include "dialogs/dialog_test.h"
#include "dialogs/frmConfigMagick.h"
#include "dialogs/frmMsg.h"
#include "dialogs/frmMsg2.h"
#include "dialogs/frmMultiPic.h"
#include "image/bitmap_file.h"
#include "settings/folders.h"

namespace kelvane::test {
namespace {

struct ConverterDialogs : DialogTest {
    std::vector<std::wstring> opened;
    OpenInShell open = [this](const std::wstring& page) { opened.push_back(page); };
    frmConfigMagick places{settings, open};

    std::wstring program(const wchar_t* name) const {
        write_text(scratch / name, "");
        return (scratch / name).wstring();
    }
    std::pair<std::wstring, std::wstring> stored_programs() const {
        return {settings.ReadIniValue(L"ImageMagick", L"Convert"),
                settings.ReadIniValue(L"ImageMagick", L"Identify")};
    }
};

TEST_F(ConverterDialogs, ProgramsBrowsedToAreStoredAndTheOtherOneIsProposed) {
    const std::wstring convert = program(L"Convert.exe");
    const std::wstring identify = program(L"Identify.exe");
    show(places, IDOK, [&](HWND window) {
        script.expect_file_dialog(convert);
        press(window, IDC_MAGICK_CONVERT_BROWSE);
        EXPECT_EQ(text_of(window, IDC_MAGICK_IDENTIFY), identify);
        press(window, IDC_MAGICK_DOWNLOAD);
        press(window, IDC_MAGICK_GHOSTSCRIPT);
    });
    EXPECT_EQ(stored_programs(), std::pair(convert, identify));
    EXPECT_THAT(opened, ElementsAre(testing::StartsWith(L"https://imagemagick.org/"),
                                    testing::StartsWith(L"https://ghostscript.com/")));

    std::filesystem::remove(identify);
    const std::wstring magick = program(L"Magick.exe");
    show(places, IDOK, [&](HWND window) {
        EXPECT_EQ(text_of(window, IDC_MAGICK_CONVERT), convert);
        EXPECT_EQ(text_of(window, IDC_MAGICK_IDENTIFY), magick) << "identify.exe is gone";
        type_text(window, IDC_MAGICK_CONVERT, L"\t\"" + magick + L"\" ");
    });
    EXPECT_EQ(stored_programs(), std::pair(magick, magick));
}

TEST_F(ConverterDialogs, AnInstalledProgramIsProposedToStartWith) {
    const std::wstring magick = program(L"Magick.exe");
    const std::wstring before = _wgetenv(L"PATH");
    _wputenv_s(L"PATH", (before + L";" + scratch.path().wstring()).c_str());
    show(places, IDOK);
    _wputenv_s(L"PATH", before.c_str());
    EXPECT_EQ(stored_programs(), std::pair(magick, magick));
}

TEST_F(ConverterDialogs, WhatIsNoProgramOfImageMagickIsRefused) {
    const std::wstring convert = program(L"Convert.exe");
    const std::wstring other = program(L"other.exe");
    places.IsImageMagick = [&](const std::wstring& file, auto&) { return file != other; };
    show(places, IDCANCEL, [&](HWND window) {
        expect_refused(window);
        expect_refused(window, IDC_MAGICK_CONVERT, scratch.path().wstring());
        expect_refused(window, IDC_MAGICK_CONVERT, L"Convert.exe");
        type_text(window, IDC_MAGICK_CONVERT, convert);
        expect_refused(window, IDC_MAGICK_IDENTIFY, other);
        EXPECT_EQ(GetFocus(), GetDlgItem(window, IDC_MAGICK_IDENTIFY));
    });
    EXPECT_THAT(script.messages().front(), testing::HasSubstr(L"select the file Convert.exe"));
    EXPECT_THAT(script.messages().back(), testing::HasSubstr(L"not part of ImageMagick: " + other));
    EXPECT_FALSE(std::filesystem::exists(scratch.ini()));
}

TEST_F(ConverterDialogs, NothingElseHappensDuringTheCheck) {
    const std::wstring magick = program(L"Magick.exe");
    int checks = 0;
    // The user presses other buttons meanwhile, gives up the first check and closes in the second.
    places.IsImageMagick = [&](const std::wstring&, const KeepWaiting& keep_waiting) {
        const HWND window = places.window();
        ++checks;
        for (const int button : {IDC_MAGICK_CONVERT_BROWSE, IDC_MAGICK_DOWNLOAD, IDOK})
            if (checks <= 2) PostMessageW(window, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED), 0);
        if (checks == 2) PostMessageW(window, WM_CLOSE, 0, 0);
        handle_messages();
        EXPECT_EQ(keep_waiting(), checks == 1);
        return checks == 1 ? std::nullopt : std::optional(true);
    };
    show(places, IDCANCEL, [&](HWND window) {
        type_text(window, IDC_MAGICK_CONVERT, magick);
        press(window, IDOK); // no message
        EXPECT_TRUE(IsWindowVisible(window));
        press(window, IDOK);
        EXPECT_FALSE(IsWindowVisible(window)) << "not closed";
    });
    EXPECT_EQ(checks, 2);
    EXPECT_THAT(opened, testing::IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(scratch.ini()));
}

TEST_F(ConverterDialogs, OkStoresWhetherTheWarningComesAgain) {
    frmMsg2 warning(settings);
    for (const auto& [button, click_first, stored] : {std::tuple(IDCANCEL, true, L""),
                                                      {IDOK, false, L"0"},
                                                      {IDOK, true, L"1"},
                                                      {IDCANCEL, true, L"1"},
                                                      {IDOK, true, L"0"}}) {
        show(warning, button, [&](HWND window) {
            if (click_first) click(window, IDC_SEVERAL_NOT_AGAIN);
        });
        EXPECT_EQ(settings.ReadIniValue(L"ImageMagick", L"Warning"), stored);
    }
}

TEST_F(ConverterDialogs, FailuresShowAllTheConverterSaid) {
    std::wstring report;
    for (int line = 0; line < 1000; ++line)
        report += std::wstring(100, L'x') + L'\n';
    frmMsg failure(L"No picture.", report + L"one\r\ntwo\0three\n"s, open);
    show(failure, IDOK, [](HWND window) {
        const std::wstring text = text_of(window, IDC_OPEN_ERROR_TEXT);
        EXPECT_THAT(text, testing::StartsWith(L"No picture.\r\n\r\nImageMagick reports:\r\nxxx"));
        EXPECT_THAT(text, testing::EndsWith(L"xxx\r\none\r\ntwothree\r\n"));
        press(window, IDC_OPEN_ERROR_FORMATS);
    });
    EXPECT_THAT(opened, ElementsAre(program_folder() + L"\\formats.html"));
}

struct SubimageDialog : DialogTest {
    std::vector<SubImage> red_images(int count) const {
        save_bitmap(flat_picture(200, 200, 0, 0, 255).view(), scratch / "red.bmp");
        return std::vector<SubImage>(static_cast<std::size_t>(count),
                                     {scratch / "red.bmp", 640, 480});
    }
    static HWND list_of(HWND dialog) { return GetDlgItem(dialog, IDC_SUBIMAGE_LIST); }
    static COLORREF middle_of(HWND dialog, int image) {
        RECT item{};
        ListView_GetItemRect(list_of(dialog), image, &item, LVIR_BOUNDS);
        return shown_at(dialog, IDC_SUBIMAGE_LIST, (item.left + item.right) / 2, item.top + 80);
    }
};

TEST_F(SubimageDialog, KeysAndADoubleClickChooseAmongHundreds) {
    frmMultiPic dialog(red_images(500));
    show(dialog, IDOK, [](HWND window) {
        EXPECT_EQ(text_of(window, IDC_SUBIMAGE_NUMBER), L"Image 1 of 500");
        EXPECT_EQ(GetFocus(), list_of(window));
        EXPECT_EQ(middle_of(window, 0), RGB(255, 0, 0));
        SendMessageW(list_of(window), WM_KEYDOWN, VK_END, 0);
        EXPECT_EQ(text_of(window, IDC_SUBIMAGE_NUMBER), L"Image 500 of 500");
        EXPECT_EQ(middle_of(window, 499), RGB(255, 0, 0)) << "not scrolled into view";
        SendMessageW(list_of(window), WM_KEYDOWN, VK_LEFT, 0);
    });
    EXPECT_EQ(dialog.Index, 498);

    script.expect([](HWND window) {
        EXPECT_EQ(text_of(window, IDC_SUBIMAGE_NUMBER), L"Image 499 of 500");
        POINT place{};
        ListView_GetItemPosition(list_of(window), 499, &place);
        const LPARAM at = MAKELPARAM(place.x + 20, place.y + 20);
        for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP})
            PostMessageW(list_of(window), message, MK_LBUTTON, at);
    });
    EXPECT_TRUE(dialog.show_modal(nullptr));
    EXPECT_EQ(dialog.Index, 499);
}

TEST_F(SubimageDialog, PreviewsThatCannotBeReadAreCrossedBoxes) {
    std::vector<SubImage> images = red_images(4);
    images[1].preview = scratch / "gone.bmp";
    images[2].preview = scratch.path();
    write_text(scratch / "short.bmp", file_text(scratch / "red.bmp").substr(0, 500));
    images[3].preview = scratch / "short.bmp";
    frmMultiPic dialog(images);
    show(dialog, IDCANCEL, [](HWND window) {
        for (int image = 1; image < 4; ++image)
            EXPECT_EQ(middle_of(window, image), GetSysColor(COLOR_BTNFACE)) << image;
    });
    frmMultiPic none({});
    show(none, IDCANCEL, [](HWND window) {
        press(window, IDOK);
        EXPECT_TRUE(IsWindowVisible(window)) << "OK without an image";
    });
}

} // namespace
} // namespace kelvane::test
