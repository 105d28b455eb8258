#include "dialogs/frmNewSize.h"

#include "dialogs/shown_dialog.h"
#include "settings/scratch_folder.h"

#include "ids.h"

#include <gtest/gtest.h>

namespace kelvane {
namespace {

using test::ModalScript;
using test::press;
using test::text_of;
using test::type_text;

std::wstring size_shown(HWND dialog) {
    return text_of(dialog, IDC_SIZE_WIDTH) + L" x " + text_of(dialog, IDC_SIZE_HEIGHT);
}

TEST(NewSizeDialog, StartsWithTheLastSizeOrThePicturesOwn) {
    const ScratchFolder scratch;
    const SettingsFile settings = scratch.settings();
    const auto expect_shown = [&](const std::wstring& size, bool ratio) {
        ModalScript script;
        script.expect_dialog(
            [&](HWND dialog) {
                EXPECT_EQ(size_shown(dialog), size);
                EXPECT_EQ(test::is_checked(dialog, IDC_SIZE_KEEP_RATIO), ratio);
            },
            IDCANCEL);
        frmNewSize dialog(settings, 300, 100);
        EXPECT_FALSE(dialog.show_modal(nullptr));
        EXPECT_TRUE(dialog.Cancelled);
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

TEST(NewSizeDialog, SidesFollowEachOther) {
    const ScratchFolder scratch;
    ModalScript script;
    script.expect_dialog(
        [](HWND dialog) {
            type_text(dialog, IDC_SIZE_WIDTH, L"150");
            EXPECT_EQ(size_shown(dialog), L"150 x 50");
            type_text(dialog, IDC_SIZE_HEIGHT, L"33");
            EXPECT_EQ(size_shown(dialog), L"99 x 33");
            type_text(dialog, IDC_SIZE_WIDTH, L"1");
            EXPECT_EQ(size_shown(dialog), L"1 x 1");
            type_text(dialog, IDC_SIZE_HEIGHT, L"26754");
            EXPECT_EQ(size_shown(dialog), L"26754 x 26754") << "no side beyond what is allowed";
            type_text(dialog, IDC_SIZE_HEIGHT, L"");
            EXPECT_EQ(size_shown(dialog), L"26754 x ");
            test::click(dialog, IDC_SIZE_KEEP_RATIO);
            type_text(dialog, IDC_SIZE_WIDTH, L"60");
            type_text(dialog, IDC_SIZE_HEIGHT, L"60");
            EXPECT_EQ(size_shown(dialog), L"60 x 60");
            test::click(dialog, IDC_SIZE_KEEP_RATIO);
            EXPECT_EQ(size_shown(dialog), L"60 x 20");
        },
        IDCANCEL);
    frmNewSize(scratch.settings(), 300, 100).show_modal(nullptr);
}

TEST(NewSizeDialog, RefusesWhatNoPictureHoldsAndStoresTheRest) {
    const ScratchFolder scratch;
    const SettingsFile settings = scratch.settings();
    ModalScript script;
    script.expect([&](HWND dialog) {
        test::click(dialog, IDC_SIZE_KEEP_RATIO);
        for (const wchar_t* height : {L"0", L"", L"26755", L"99999999999", L"12 x"}) {
            type_text(dialog, IDC_SIZE_HEIGHT, height);
            script.expect_message(IDOK);
            press(dialog, IDOK);
            EXPECT_TRUE(IsWindowVisible(dialog)) << testing::PrintToString(height);
            EXPECT_EQ(GetFocus(), GetDlgItem(dialog, IDC_SIZE_HEIGHT));
        }
        type_text(dialog, IDC_SIZE_HEIGHT, L"26754");
        press(dialog, IDOK);
    });
    frmNewSize dialog(settings, 300, 100);
    EXPECT_TRUE(dialog.show_modal(nullptr));
    EXPECT_FALSE(dialog.Cancelled);
    EXPECT_EQ(dialog.NewWidth, 300);
    EXPECT_EQ(dialog.NewHeight, 26754);
    EXPECT_EQ(script.messages().front(), L"Please enter a Width and a Height from 1 to 26754 "
                                         L"Pixels.");
    EXPECT_EQ(settings.ReadIniValue(L"imageexport", L"resx"), L"300");
    EXPECT_EQ(settings.ReadIniValue(L"imageexport", L"resy"), L"26754");
}

} // namespace
} // namespace kelvane
