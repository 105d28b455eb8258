// Opening by ImageMagick, from the menu to the document.
#include "app_test.h"

#include "settings/catalogue.h"
#include "settings/folders.h"

#include "ids.h"

#include <commctrl.h>
#include <gmock/gmock.h>

namespace kelvane::test {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::StartsWith;

const std::wstring kMagick =
    std::filesystem::absolute(std::filesystem::path(KELVANE_IMAGEMAGICK) / "magick.exe").wstring();

class ByImageMagick : public AppTest {
  protected:
    void configure(const std::wstring& program) const {
        const SettingsFile settings(folder / "kelvane.ini");
        write_setting(settings, settings::kConvertProgram, program);
        write_setting(settings, settings::kIdentifyProgram, program);
    }
    /// Answers the open dialog with a copy of one of the converter's pictures, and its path.
    std::wstring expect_choice_of(const char* picture, const std::wstring& name) {
        copy_file(std::filesystem::path(KELVANE_CONVERTER_PICTURES) / picture, folder / name,
                  std::filesystem::copy_options::overwrite_existing);
        script.expect_file_dialog(path(name));
        return path(name);
    }
    void expect_chooser(int image, int button) {
        const auto select = [image](HWND dialog) {
            const HWND list = GetDlgItem(dialog, IDC_SUBIMAGE_LIST);
            EXPECT_EQ(ListView_GetItemCount(list), 3);
            ListView_SetItemState(list, image, LVIS_SELECTED, LVIS_SELECTED);
        };
        script.expect_dialog(select, button);
    }
};

TEST_F(ByImageMagick, ProgramsAreAskedForOnceAndASingleImageOpens) {
    const auto stop_check = [](HWND dialog) {
        type_text(dialog, IDC_MAGICK_CONVERT, kMagick);
        PostMessageW(dialog, WM_KEYDOWN, VK_ESCAPE, 0); // while the program is asked what it is
        press(dialog, IDOK);
        EXPECT_TRUE(IsWindowVisible(dialog));
    };
    script.expect_dialog(stop_check, IDCANCEL);
    choose(kCmdOpenByImageMagick);

    script.expect_dialog([](HWND dialog) { type_text(dialog, IDC_MAGICK_CONVERT, kMagick); });
    const std::wstring file = expect_choice_of("transparent.webp", L"-my \x4E2D logo.webp");
    choose(kCmdOpenByImageMagick);
    ASSERT_EQ(main.forms().size(), 1u);
    EXPECT_EQ(caption(*main.forms()[0]), L"Image: " + file);
    EXPECT_EQ(picture_of(*main.forms()[0]).Width(), 60);
    EXPECT_EQ(setting(L"global", L"lastpath"), ExistingFolderOf(file));
    EXPECT_EQ(main.recent_files().file(1), file);
    EXPECT_TRUE(main.recent_files().fileflag(1));

    choose(kCmdRecent1);
    EXPECT_EQ(main.forms().size(), 2u);
    std::filesystem::remove(file);
    expect_error(L"File not found: " + file);
    choose(kCmdRecent1);
}

TEST_F(ByImageMagick, OneOfSeveralImagesIsChosen) {
    configure(kMagick);
    expect_choice_of("pages.tif", L"pages.TIF");
    script.expect_dialog(
        [](HWND dialog) { CheckDlgButton(dialog, IDC_SEVERAL_NOT_AGAIN, BST_CHECKED); });
    expect_chooser(1, IDOK);
    choose(kCmdOpenByImageMagick);
    EXPECT_EQ(status(2), L" 48 x 64");

    expect_choice_of("pages.tif", L"pages.TIF"); // and no warning any more
    expect_chooser(2, IDCANCEL);
    choose(kCmdOpenByImageMagick);
    EXPECT_EQ(main.forms().size(), 1u);

    expect_choice_of("broken.tif", L"broken.tif");
    std::wstring text;
    script.expect_dialog([&](HWND dialog) { text = text_of(dialog, IDC_OPEN_ERROR_TEXT); });
    choose(kCmdOpenByImageMagick);
    EXPECT_THAT(text, StartsWith(LoadString(IDS_IMAGE_OPEN_ERROR) + path(L"broken.tif")));
    EXPECT_THAT(text, HasSubstr(L"Not a TIFF file"));
    EXPECT_EQ(main.forms().size(), 1u);
}

mfrmMain* window = nullptr;
std::vector<std::wstring> seen; // in the status line

// A timer: runs while the converter hangs, because messages are dispatched.
void CALLBACK look(HWND, UINT, UINT_PTR, DWORD) {
    seen.push_back(window->status_bar().text(0));
    if (!seen.back().ends_with(L": a.hang")) return;
    SendMessageW(window->window(), WM_COMMAND, kCmdPaste, 0);
    seen.push_back(window->status_bar().text(0));
    PostMessageW(window->window(), WM_KEYDOWN, VK_ESCAPE, 0);
}

TEST_F(ByImageMagick, HangingConverterEndsWithEsc) {
    configure(std::filesystem::absolute(KELVANE_CONVERT_CHILD).wstring());
    SetEnvironmentVariableW(L"KELVANE_CHILD_LOG", path(L"log").c_str());
    expect_choice_of("transparent.webp", L"a.hang");
    script.expect_dialog([](HWND) {}); // the warning
    window = &main;
    const UINT_PTR timer = SetTimer(nullptr, 0, 50, look);
    choose(kCmdOpenByImageMagick);
    KillTimer(nullptr, timer);
    EXPECT_THAT(seen, Contains(L" " + LoadString(IDS_MAGICK_CONVERTING, {L"a.hang"})));
    EXPECT_THAT(seen, Contains(L" " + LoadString(IDS_IMAGE_BUSY)));
    EXPECT_EQ(status(0), L" " + LoadString(IDS_SHELL_CANCELLED));
    EXPECT_TRUE(main.forms().empty());
}

} // namespace
} // namespace kelvane::test
