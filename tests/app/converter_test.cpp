// Opening by ImageMagick, from the menu to the document.
#include "app_test.h"

#include "settings/catalogue.h"

#include "ids.h"

#include <commctrl.h>
#include <gmock/gmock.h>

namespace kelvane::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

std::wstring absolute_path(const std::filesystem::path& file) {
    return std::filesystem::absolute(file).wstring();
}

std::wstring imagemagick(const char* program) {
    return absolute_path(std::filesystem::path(KELVANE_IMAGEMAGICK) / program);
}

class ByImageMagick : public AppTest {
  protected:
    ~ByImageMagick() override { EXPECT_EQ(private_folders(), 0) << "something was left behind"; }

    static long long private_folders() {
        const std::filesystem::directory_iterator all(TempDir());
        return std::count_if(begin(all), end(all), [](const auto& entry) {
            return entry.path().filename().wstring().starts_with(L"Kelvane-");
        });
    }

    void configure(const std::wstring& program, bool warn) {
        write_setting(settings, settings::kConvertProgram, program);
        write_setting(settings, settings::kIdentifyProgram, program);
        write_setting(settings, settings::kHideSeveralImagesWarning, warn ? 0 : 1);
    }
    /// A picture of the converter's in the test's folder, under this name.
    std::wstring picture(const char* picture, const std::wstring& name) {
        copy_file(std::filesystem::path(KELVANE_CONVERTER_PICTURES) / picture, folder / name);
        return path(name);
    }
    void expect_chooser(int image, int button) {
        script.expect_dialog(
            [=](HWND dialog) {
                const HWND list = GetDlgItem(dialog, IDC_SUBIMAGE_LIST);
                EXPECT_EQ(ListView_GetItemCount(list), 3);
                ListView_SetItemState(list, image, LVIS_SELECTED, LVIS_SELECTED);
            },
            button);
    }

    SettingsFile settings{folder / "kelvane.ini"};
};

TEST_F(ByImageMagick, ProgramsAreAskedForOnceAndASingleImageOpens) {
    script.expect_dialog([](HWND) {}, IDCANCEL);
    choose(kCmdOpenByImageMagick);
    EXPECT_TRUE(script.all_done());

    const std::wstring file = picture("one.webp", L"-my \x4E2D logo.webp");
    script.expect_dialog([](HWND dialog) {
        type_text(dialog, IDC_MAGICK_CONVERT, imagemagick("convert.exe"));
        type_text(dialog, IDC_MAGICK_IDENTIFY, imagemagick("identify.exe"));
    });
    script.expect_file_dialog(file);
    choose(kCmdOpenByImageMagick);
    ASSERT_EQ(main.forms().size(), 1u);
    EXPECT_EQ(caption(*main.forms()[0]), L"Image: " + file);
    EXPECT_EQ(picture_of(*main.forms()[0]).Width(), 50);
    EXPECT_FALSE(main.forms()[0]->document().Dirty());
    EXPECT_EQ(setting(L"global", L"lastpath"), ExistingFolderOf(file));
    EXPECT_EQ(main.recent_files().file(1), file);
    EXPECT_TRUE(main.recent_files().fileflag(1));

    choose(kCmdRecent1);
    EXPECT_EQ(main.forms().size(), 2u);
    std::filesystem::remove(file);
    script.expect_message(IDOK);
    choose(kCmdRecent1);
    EXPECT_EQ(script.messages().back(), L"File not found: " + file);
}

TEST_F(ByImageMagick, OneOfSeveralImagesIsChosen) {
    configure(imagemagick("magick.exe"), true);
    const std::wstring file = picture("pages.tif", L"pages.TIF");
    script.expect_file_dialog(file);
    script.expect_dialog(
        [](HWND dialog) { CheckDlgButton(dialog, IDC_SEVERAL_NOT_AGAIN, BST_CHECKED); });
    expect_chooser(1, IDOK);
    choose(kCmdOpenByImageMagick);
    ASSERT_EQ(main.forms().size(), 1u);
    EXPECT_EQ(status(2), L" 48 x 64");
    EXPECT_GT(pixel_at(picture_of(*main.forms()[0]), 9, 9)[1], 240) << "the second page is green";

    script.expect_file_dialog(file); // and no warning any more
    expect_chooser(2, IDCANCEL);
    choose(kCmdOpenByImageMagick);
    EXPECT_EQ(main.forms().size(), 1u);
}

TEST_F(ByImageMagick, FailureIsReportedInTheConvertersWords) {
    configure(imagemagick("magick.exe"), false);
    script.expect_file_dialog(picture("broken.tif", L"broken.tif"));
    std::wstring text;
    script.expect_dialog([&](HWND dialog) { text = text_of(dialog, IDC_OPEN_ERROR_TEXT); });
    choose(kCmdOpenByImageMagick);
    EXPECT_THAT(text, StartsWith(LoadString(IDS_IMAGE_OPEN_ERROR) + path(L"broken.tif")));
    EXPECT_THAT(text, HasSubstr(L"Not a TIFF file"));
    EXPECT_TRUE(main.forms().empty());
    EXPECT_EQ(main.recent_files().FileCount(), 0);
}

TEST_F(ByImageMagick, HangingConverterEndsWithEsc) {
    configure(absolute_path(KELVANE_CONVERT_CHILD), true);
    SetEnvironmentVariableW(L"KELVANE_CHILD_LOG", path(L"log").c_str());
    script.expect_file_dialog(picture("one.webp", L"a.hang"));
    script.expect_dialog([](HWND) {}); // the warning
    static mfrmMain* window;
    static std::vector<std::wstring> seen;
    window = &main;
    seen.clear();
    // Runs while the converter hangs, because the windows' messages are handled.
    const auto look = [](HWND, UINT, UINT_PTR, DWORD) {
        seen.push_back(window->status_bar().text(0));
        if (!seen.back().starts_with(L" Converting")) return;
        SendMessageW(window->window(), WM_COMMAND, kCmdPaste, 0);
        seen.push_back(window->status_bar().text(0));
        PostMessageW(window->window(), WM_KEYDOWN, VK_ESCAPE, 0);
    };
    const UINT_PTR timer = SetTimer(nullptr, 0, 50, look);
    choose(kCmdOpenByImageMagick);
    KillTimer(nullptr, timer);
    EXPECT_THAT(seen, testing::Contains(StartsWith(L" Converting a.hang...")));
    EXPECT_THAT(seen, testing::Contains(L" " + LoadString(IDS_IMAGE_BUSY)));
    EXPECT_EQ(status(0), L" " + LoadString(IDS_SHELL_CANCELLED));
    EXPECT_TRUE(main.forms().empty());
}

} // namespace
} // namespace kelvane::test
