// Which page of the help opens where. A stand-in replaces the system's library.
#include "app_test.h"

#include "settings/folders.h"

#include "ids.h"

#include <fstream>

namespace kelvane::test {
namespace {

class HelpPages : public AppTest {
  protected:
    static void SetUpTestSuite() {
        if (!exists(systems())) rename(library(), systems());
        copy_file(program_folder() + L"\\hhctrl.ocx", library(),
                  std::filesystem::copy_options::overwrite_existing);
    }
    static void TearDownTestSuite() { std::filesystem::rename(systems(), library()); }
    static std::filesystem::path library() { return system_folder() + L"\\hhctrl.ocx"; }
    static std::filesystem::path systems() { return system_folder() + L"\\hhctrl.system"; }

    HelpPages() { std::ofstream(file_) << "any file: the library stands in for its reader"; }
    ~HelpPages() override {
        std::error_code ignored;
        remove(file_, ignored);
    }
    /// The number of the page asked for since the last call; 0 without one.
    int page() const {
        wchar_t asked[2 * MAX_PATH] = L"";
        GetEnvironmentVariableW(L"KELVANE_HELP", asked, std::size(asked));
        SetEnvironmentVariableW(L"KELVANE_HELP", nullptr);
        const std::wstring text = asked;
        if (text.empty()) return 0;
        EXPECT_EQ(text.substr(0, 3), L"15 ") << "is no help by context";
        EXPECT_EQ(text.substr(text.find(L' ', 3) + 1), file_.wstring());
        return std::stoi(text.substr(3));
    }
    // `menu`: the open menu with the highlighted entry, if any.
    static void press_f1(HWND focus, HANDLE menu = nullptr) {
        HELPINFO request{};
        request.cbSize = sizeof request;
        request.iContextType = menu != nullptr ? HELPINFO_MENUITEM : HELPINFO_WINDOW;
        request.hItemHandle = menu != nullptr ? menu : focus;
        SendMessageW(focus, WM_HELP, 0, reinterpret_cast<LPARAM>(&request));
    }

    const std::filesystem::path file_ =
        std::filesystem::path(program_folder()) / "EAGLE_Kelvane.chm";
};

TEST_F(HelpPages, MainWindowAndItsMenus) {
    choose(kCmdHelp);
    EXPECT_EQ(page(), IDH_START + kEnglishOffset);
    EXPECT_NE(GetModuleHandleW(library().c_str()), nullptr) << "one beside the program";
    press_f1(main.window());
    EXPECT_EQ(page(), IDH_START + kEnglishOffset);
    press_f1(opened(black_picture(2, 2)).window());
    EXPECT_EQ(page(), IDH_MAIN_WINDOW + kEnglishOffset);

    const HMENU bar = GetMenu(main.window());
    const auto page_in = [&](HMENU menu) {
        press_f1(main.window(), menu);
        return page() - kEnglishOffset;
    };
    const int pages[] = {IDH_MENU_FILE,    IDH_MENU_EDIT,   IDH_MENU_IMAGE,
                         IDH_MENU_COLOURS, IDH_MENU_WINDOW, IDH_MENU_HELP};
    for (int i = 0; i < GetMenuItemCount(bar); ++i)
        EXPECT_EQ(page_in(GetSubMenu(bar, i)), pages[i]);
    EXPECT_EQ(page_in(GetSubMenu(GetSubMenu(bar, 2), 0)), IDH_MENU_IMAGE);
    EXPECT_EQ(page_in(bar), IDH_MAIN_WINDOW);
    HiliteMenuItem(main.window(), bar, 2, MF_BYPOSITION | MF_HILITE);
    EXPECT_EQ(page_in(bar), IDH_MENU_IMAGE);
    press_f1(main.window(), main.window()); // no menu
    EXPECT_EQ(page(), 0);
}

TEST_F(HelpPages, EveryDialogHasItsOwnAndChangesNothingWhenCancelled) {
    const frmImage& form = opened(random_picture(9, 9, 4));
    const std::pair<unsigned, int> dialogs[] = {
        {kCmdExport, IDD_EXPORT},        {kCmdAddNoise, IDD_NOISE},
        {kCmdCustomFilter, IDD_CUSTOM},  {kCmdResample, IDD_NEW_SIZE},
        {kCmdCombine, IDD_COMBINATION},  {kCmdColourise, IDD_HUE},
        {kCmdApplyPalette, IDD_PALETTE}, {kCmdReduce, IDD_REDUCE},
        {kCmdAbout, IDD_ABOUT},          {kCmdLanguage, IDD_LANGUAGE},
    };
    for (const int offset : {kEnglishOffset, kGermanOffset}) {
        set_language_offset(offset);
        for (const auto& [command, expected] : dialogs) {
            // From a control, as the key comes.
            script.expect_dialog([](HWND dialog) { press_f1(GetWindow(dialog, GW_CHILD)); },
                                 IDCANCEL);
            choose(command);
            EXPECT_EQ(page(), expected + offset);
        }
    }
    set_language_offset(kEnglishOffset);
    EXPECT_TRUE(same_pixels(picture_of(form), random_picture(9, 9, 4)));
    EXPECT_FALSE(form.document().Dirty() || form.document().undoEnable());
    EXPECT_EQ(main.forms().size(), 1u);
    EXPECT_FALSE(exists(folder / "kelvane.ini"));
}

TEST_F(HelpPages, DialogSurvivesMissingHelp) {
    remove(file_);
    script.expect_dialog(
        [this](HWND dialog) {
            expect_error(L"The help file was not found: " + file_.wstring());
            press_f1(dialog);
            EXPECT_TRUE(IsWindow(dialog));
        },
        IDCANCEL);
    choose(kCmdLanguage);
}

} // namespace
} // namespace kelvane::test
