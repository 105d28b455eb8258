// Files and clipboard: what opens, what is saved, what is remembered.
#include "app_test.h"
#include "menu_path.h"

#include "image/picture_reader.h"
#include "win/unique_handle.h"

#include "ids.h"

#include <gmock/gmock.h>
#include <shlobj.h>

#include <cstring>

namespace kelvane::test {
namespace {

using testing::StartsWith;

HGLOBAL global_block(const std::string& bytes) {
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    std::memcpy(GlobalLock(block), bytes.data(), bytes.size());
    GlobalUnlock(block);
    return block;
}

std::string bytes_of(const auto* first, std::size_t count = 1) {
    return {reinterpret_cast<const char*>(first), count * sizeof *first};
}

class Files : public AppTest {
  protected:
    void put_on_clipboard(UINT format, const std::string& bytes) {
        const HGLOBAL block = global_block(bytes);
        ASSERT_TRUE(OpenClipboard(main.window()) && EmptyClipboard());
        ASSERT_NE(SetClipboardData(format, block), nullptr);
        CloseClipboard();
    }
    void add_to_clipboard(const wchar_t* format, const std::string& bytes) {
        ASSERT_TRUE(OpenClipboard(main.window()));
        SetClipboardData(RegisterClipboardFormatW(format), global_block(bytes));
        CloseClipboard();
    }
};

TEST_F(Files, OpenDialogRemembersItsFolder) {
    const std::wstring file = saved(flat_picture(5, 3, 1, 2, 3));
    script.expect_file_dialog(file);
    choose(kCmdOpen);
    ASSERT_EQ(main.forms().size(), 1u);
    EXPECT_EQ(caption(*main.forms()[0]), L"Image: " + file);
    EXPECT_EQ(main.recent_files().file(1), file);
    EXPECT_EQ(setting(L"global", L"lastpath") + L"picture.bmp", file);
    EXPECT_EQ(status(0), L" ");
    EXPECT_EQ(status(1), L" picture.bmp");
    EXPECT_EQ(status(2), L" 5 x 3");
    script.expect_file_dialog({});
    choose(kCmdOpen);
    EXPECT_EQ(main.forms().size(), 1u);
}

TEST_F(Files, WhatDoesNotOpenLeavesNoWindow) {
    write_text(folder / "rubbish.png", "no picture");
    const std::pair<std::wstring, std::wstring> kCauses[] = {
        {path(L"rubbish.png"), path(L"rubbish.png") +
                                   L": not a picture that can be read.\r\n\r\nOther formats open "
                                   L"with 'Open by ImageMagick' in the menu File."},
        {path(L"missing.bmp"), path(L"missing.bmp") + L": No such file or directory"},
        {L"", L"No such file or directory"}};
    for (const auto& [file, cause] : kCauses) {
        script.expect([&, cause = cause](HWND box) {
            EXPECT_EQ(main.active_form(), nullptr) << "behind the message";
            EXPECT_EQ(message_shown(box),
                      L"Error ! [OK]: An error occured trying to open this file: " + cause);
            press(box, IDOK);
        });
        main.open_file(file);
    }
    write_text(folder / "empty.gif", {"GIF89a\0\0\1\0\0\0\0;", 14});
    main.open_file(path(L"empty.gif")); // no columns, and no message
    EXPECT_TRUE(main.forms().empty());
    EXPECT_EQ(main.recent_files().FileCount(), 0);
}

TEST_F(Files, DroppedFilesOpen) {
    const std::wstring names =
        saved(black_picture(2, 2)) + L'\0' + saved(black_picture(3, 3), L"ä 2.bmp") + L'\0' + L'\0';
    const DROPFILES drop{sizeof drop, {}, FALSE, TRUE};
    const HGLOBAL block = global_block(bytes_of(&drop) + bytes_of(names.data(), names.size()));
    SendMessageW(main.window(), WM_DROPFILES, reinterpret_cast<WPARAM>(block), 0);
    ASSERT_EQ(main.forms().size(), 2u);
    EXPECT_EQ(main.forms()[1]->document().Filename(), path(L"ä 2.bmp"));
}

TEST_F(Files, SavedPictureIsTheShownOneAndNoLongerChanged) {
    frmImage& form = changed();
    script.expect_file_dialog(path(L"new name.bmp"));
    choose(kCmdSave);
    EXPECT_FALSE(form.document().Dirty());
    EXPECT_EQ(caption(form), L"Image: " + path(L"new name.bmp"));
    EXPECT_EQ(status(0) + status(1), L"  new name.bmp");
    EXPECT_TRUE(same_pixels(read_picture(path(L"new name.bmp")), picture_of(form)));
    EXPECT_EQ(main.recent_files().file(1), path(L"new name.bmp"));
    EXPECT_THAT(path(L"new name.bmp"), StartsWith(setting(L"global", L"lastpath2")));
}

TEST_F(Files, FailedSaveKeepsTheFileAndTheChange) {
    frmImage& form = changed();
    const std::wstring target = path(L"picture.bmp");
    const std::string before = file_text(target);
    // Another program holds it: unlike write protection this also stops an administrator.
    UniqueHandle held(
        CreateFileW(target.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    script.expect_file_dialog(target);
    script.expect_message(IDYES); // overwrite
    expect_error(L"An error occured trying to save this file: Permission denied");
    choose(kCmdSave);
    held.reset();
    EXPECT_TRUE(form.document().Dirty());
    EXPECT_EQ(file_text(target), before);
}

TEST_F(Files, RecentFilesOpenFromTheMenu) {
    const std::wstring first = saved(black_picture(2, 2), L"1.bmp");
    main.open_file(first);
    for (const wchar_t* name : {L"2.bmp", L"3.bmp", L"4.bmp", L"A & B, long enough for dots.bmp"})
        main.open_file(saved(black_picture(3, 3), name));
    const HMENU file_menu = GetSubMenu(GetMenu(main.window()), 0);
    EXPECT_EQ(GetMenuItemCount(file_menu), 14); // 9, four files, a separator
    EXPECT_EQ(menu_text(file_menu, 7), L"&1)  ...\\A && B, long enough for dots.bmp");
    SendMessageW(main.window(), WM_INITMENUPOPUP, 0, 4);
    EXPECT_THAT(menu_texts(GetSubMenu(GetMenu(main.window()), 4)).back(),
                testing::EndsWith(L"\\A && B, long enough for dots.bmp"));
    choose(kCmdRecent4);
    EXPECT_EQ(main.active_form()->document().FileTitle(), L"2.bmp");
    EXPECT_EQ(main.recent_files().file(1), path(L"2.bmp"));
}

TEST_F(Files, CopiedPicturePastesWithoutLoss) {
    const cDIBSection picture = random_picture(33, 9, 5);
    frmImage& form = opened(picture);
    const auto files = temporary_files();
    choose(kCmdCopy);
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_BITMAP) && IsClipboardFormatAvailable(CF_DIB));
    EXPECT_FALSE(form.document().Dirty());
    choose(kCmdPaste);
    ASSERT_EQ(main.forms().size(), 2u);
    const frmImage& pasted = *main.forms()[1];
    EXPECT_TRUE(same_pixels(picture_of(pasted), picture));
    EXPECT_EQ(caption(pasted), L"Image: Image 1");
    EXPECT_FALSE(pasted.document().Dirty());
    EXPECT_EQ(main.recent_files().FileCount(), 1);
    EXPECT_EQ(temporary_files(), files);
}

TEST_F(Files, ForeignBitmapsPaste) {
    BITMAPINFOHEADER header{sizeof header, 2, 1, 1, 1, BI_RGB, 0, 0, 0, 0, 0};
    const auto expect_pasted = [&](const std::vector<std::uint32_t>& words) {
        put_on_clipboard(CF_DIB, bytes_of(&header) + bytes_of(words.data(), words.size()));
        const std::size_t before = main.forms().size();
        choose(kCmdPaste);
        ASSERT_EQ(main.forms().size(), before + 1);
        const cDIBSection& pasted = picture_of(*main.forms().back());
        EXPECT_EQ(pixel_at(pasted, 0, 0), (std::array<int, 3>{0x33, 0x22, 0x11}));
        EXPECT_EQ(pixel_at(pasted, 1, 0), (std::array<int, 3>{0x66, 0x55, 0x44}));
    };
    expect_pasted({0x00112233, 0x00445566, 0x00000040}); // two colours from a table
    // Colour masks behind the header and, since versions 4 and 5, in it.
    header.biBitCount = 32;
    header.biCompression = BI_BITFIELDS;
    for (const std::size_t size : {sizeof header, sizeof(BITMAPV4HEADER), sizeof(BITMAPV5HEADER)}) {
        SCOPED_TRACE(size);
        header.biSize = static_cast<DWORD>(size);
        std::vector<std::uint32_t> words{0x00FF0000, 0x0000FF00, 0x000000FF};
        words.resize(std::max<std::size_t>((size - sizeof header) / 4, words.size()));
        words.insert(words.end(), {0x00112233, 0x00445566});
        expect_pasted(words);
    }
}

TEST_F(Files, PngPastesBeforeTheBitmap) {
    const std::filesystem::path png = KELVANE_TEST_DATA "/pictures/alpha.png";
    put_on_clipboard(CF_DIB, std::string(64, '\xEE')); // damaged
    add_to_clipboard(L"PNG", file_text(png) + std::string(3, '\0'));
    choose(kCmdPaste);
    ASSERT_EQ(main.forms().size(), 1u);
    EXPECT_TRUE(same_pixels(picture_of(*main.forms()[0]), read_picture(png)));

    BITMAPINFOHEADER header{sizeof header, 1, 1, 1, 24, BI_RGB, 0, 0, 0, 0, 0};
    put_on_clipboard(CF_DIB, bytes_of(&header) + std::string("\x33\x22\x11", 4));
    std::string damaged = file_text(png);
    damaged.replace(damaged.find("IDAT") + 4, 8, 8, '\xEE');
    add_to_clipboard(L"PNG", damaged);
    choose(kCmdPaste);
    ASSERT_EQ(main.forms().size(), 2u);
    EXPECT_EQ(pixel_at(picture_of(*main.forms()[1]), 0, 0), (std::array{0x33, 0x22, 0x11}));
}

TEST_F(Files, ReducedPictureIsReported) {
    opened(flat_picture(3201, 100, 1, 2, 3));
    EXPECT_EQ(status(0), L" reduced from 3201 x 100");
    EXPECT_EQ(status(2), L" 1600 x 50");
}

TEST_F(Files, ClipboardWithoutPictureSaysSo) {
    const auto files = temporary_files();
    put_on_clipboard(CF_TEXT, "x");
    expect_error(L"An error occured whilst trying to paste this image: The clipboard holds no "
                 L"picture.");
    choose(kCmdPaste);
    add_to_clipboard(L"PNG", "no picture");
    script.expect_message(IDOK);
    choose(kCmdPaste);
    put_on_clipboard(CF_DIB, std::string(64, '\xEE')); // a damaged header
    script.expect_message(IDOK);
    choose(kCmdPaste);
    EXPECT_TRUE(main.forms().empty());
    EXPECT_EQ(temporary_files(), files);
}

TEST_F(Files, TheShellOpensThemOrSaysWhyNot) {
    write_text(path(L"page.kelvane-test"), "");
    expect_error(L"File not found");
    main.ShellEx(path(L"gone.html"));
    expect_error(L"No application is associated with this file type.");
    main.ShellEx(path(L"page.kelvane-test"));
    const HANDLE change =
        FindFirstChangeNotificationW(folder.path().c_str(), FALSE, FILE_NOTIFY_CHANGE_FILE_NAME);
    main.ShellEx(L"cmd.exe", L"open", L"/c echo>opened", folder.path().wstring(), SW_HIDE);
    EXPECT_EQ(WaitForSingleObject(change, 20000), WAIT_OBJECT_0) << "nothing started there";
    FindCloseChangeNotification(change);
}

} // namespace
} // namespace kelvane::test
