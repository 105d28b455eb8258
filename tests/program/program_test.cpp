// The finished programs: kelvane.exe with all its dialogs in both languages, looked at and used
// from outside, and kelvane-cli.exe beside it. The pictures go to the folder of screenshots.
#include "driven_program.h"

#include "app/commands.h"
#include "convert/command_line.h"
#include "convert/get_cmd_output.h"
#include "settings/catalogue.h"
#include "settings/string_table.h"
#include "support/temporary_folder.h"
#include "support/windows/modal_script.h"
#include "support/windows/screenshot.h"
#include "win/dialog.h"

#include "ids.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <span>

namespace kelvane::test {
namespace {

namespace fs = std::filesystem;

constexpr int kSystemsCaption = 0;

// What a command shows, and the button that leaves everything as it was.
struct Look {
    unsigned command;
    const char* name;
    int caption; // string table
    int button = IDCANCEL;
};
const Look kLooksAtLogo[] = {
    {kCmdOpenByImageMagick, "converter", IDS_MAGICK_TITLE},
    {kCmdSave, "save", kSystemsCaption},
    {kCmdSelectSource, "scanner-missing", IDS_ERROR_TITLE, IDOK},
    {kCmdCustomFilter, "custom-filter", IDS_CUSTOM_TITLE},
    {kCmdHelp, "help-missing", IDS_ERROR_TITLE, IDOK},
    {kCmdAbout, "about", IDS_ABOUT_TITLE},
    {kCmdLanguage, "language", IDS_LANGUAGE_TITLE},
};
const Look kLooksAtColours[] = {
    {kCmdAddNoise, "noise", IDS_NOISE_TITLE},        {kCmdResample, "new-size", IDS_SIZE_TITLE},
    {kCmdCombine, "combination", IDS_COMBINE_TITLE}, {kCmdColourise, "hue", IDS_HUE_TITLE},
    {kCmdReduce, "reduction", IDS_REDUCE_TITLE},
};

// Whether a window or one inside it has something still to paint.
bool has_to_paint(HWND window) {
    if (!IsWindowVisible(window)) return false;
    bool found = GetUpdateRect(window, nullptr, FALSE) != FALSE;
    for (HWND inside = GetWindow(window, GW_CHILD); inside != nullptr && !found;
         inside = GetWindow(inside, GW_HWNDNEXT))
        found = has_to_paint(inside);
    return found;
}

// How often the colour changes along the rows of a window inside its frame: hardly ever while
// nothing has been painted, often where there is text.
int colour_changes(HWND window, const cDIBSection& picture) {
    RECT frame{}, inside{};
    GetWindowRect(window, &frame);
    GetClientRect(window, &inside);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&inside), 2);
    OffsetRect(&inside, -frame.left, -frame.top);
    int changes = 0;
    for (int y = inside.top; y < inside.bottom; ++y)
        for (int x = inside.left + 1; x < inside.right; ++x) {
            const int row = picture.Height() - 1 - y;
            changes += pixel_at(picture, x, row) != pixel_at(picture, x - 1, row);
        }
    return changes;
}

class Program : public testing::TestWithParam<int> {
  protected:
    Program() {
        fs::remove_all(folder); // what an interrupted run left behind
        fs::create_directories(folder);
        set_language_offset(GetParam());
        write_setting(settings, settings::kLanguage, GetParam());
        const fs::path built = KELVANE_PROGRAM;
        fs::copy_file(built, program_file);
        fs::copy_file(built.parent_path() / kPalette, folder / kPalette);
        fs::copy_file(fs::path(KELVANE_SAMPLES) / "logo.png", logo);
        save_bitmap(colourful_picture(320, 240).view(), colours);
    }
    ~Program() override {
        set_language_offset(kEnglishOffset);
        std::error_code ignored;
        fs::remove_all(folder, ignored);
    }

    // Takes the picture of a window once it has painted all and stays as it is.
    void look_at(const DrivenProgram& program, HWND window, const std::string& name) const {
        cDIBSection picture_now = picture_of_window(window);
        int same = 0;
        program.wait_for("a painted window " + name, [&] {
            cDIBSection before = std::move(picture_now);
            picture_now = picture_of_window(window);
            const bool done = !has_to_paint(window) && colour_changes(window, picture_now) > kBlank;
            same = done && same_pixels(picture_now, before) ? same + 1 : 0;
            return same >= kStill;
        });
        const std::string language = GetParam() == kGermanOffset ? "de-" : "en-";
        save_screenshot(picture_now, KELVANE_SCREENSHOTS, language + name);
    }

    // The dialog that opens, its picture taken.
    HWND shown(const DrivenProgram& program, const std::string& name, int caption) const {
        const HWND dialog = program.dialog(name);
        if (caption != kSystemsCaption) {
            EXPECT_EQ(win::window_text(dialog), LoadString(caption)) << name;
        }
        look_at(program, dialog, name);
        return dialog;
    }
    void look_at_all(const DrivenProgram& program, HWND main, std::span<const Look> looks) const {
        for (const Look& look : looks) {
            PostMessageW(main, WM_COMMAND, look.command, 0);
            program.answer(shown(program, look.name, look.caption), look.button);
        }
    }
    void close_splash(const DrivenProgram& program) const {
        const HWND splash = program.window(L"#32770", LoadString(IDS_PRODUCT_NAME));
        look_at(program, splash, "splash");
        PostMessageW(splash, WM_LBUTTONDOWN, 0, 0);
        program.wait_for("the end of the splash window", [&] { return !IsWindow(splash); });
    }
    // Fully traced polygons in millimetres on layer 1.
    void export_script(const DrivenProgram& program, HWND main, const wchar_t* size,
                       const fs::path& script, const std::string& turn = "") const {
        PostMessageW(main, WM_COMMAND, kCmdExport, 0);
        const HWND dialog = shown(program, "export" + turn, IDS_EXPORT_TITLE);
        click(dialog, IDC_EXPORT_FULL);
        click(dialog, IDC_EXPORT_FULL_POLYGON);
        type_text(dialog, IDC_EXPORT_SIZE, size);
        choose_in_list(dialog, IDC_EXPORT_UNIT, 3);
        choose_in_list(dialog, IDC_EXPORT_LAYER, 0);
        program.answer(dialog, IDOK);
        answer_file_dialog(program, "script-file" + turn, IDS_EXPORT_FILE_TITLE, script);
        // The file dialog tries out the name with an empty file; the script comes whole.
        std::error_code missing;
        program.wait_for("the script",
                         [&] { return fs::file_size(script, missing) > 0 && !missing; });
    }
    void answer_file_dialog(const DrivenProgram& program, const std::string& name, int caption,
                            const fs::path& file) const {
        const HWND dialog = shown(program, name, caption);
        type_file_name(dialog, file.wstring());
        program.answer(dialog, IDOK);
    }
    // Opens by ImageMagick itself a file of three pages, the first of them, and one that is broken.
    void open_by_imagemagick(const DrivenProgram& program, HWND main) const {
        const fs::path magick = fs::absolute(fs::path(KELVANE_IMAGEMAGICK) / "magick.exe");
        write_setting(settings, settings::kConvertProgram, magick.wstring());
        write_setting(settings, settings::kIdentifyProgram, magick.wstring());
        for (const char* name : {"pages.tif", "broken.tif"})
            fs::copy_file(fs::path(KELVANE_CONVERTER_PICTURES) / name, folder / name);
        PostMessageW(main, WM_COMMAND, kCmdOpenByImageMagick, 0);
        answer_file_dialog(program, "open-by-imagemagick", kSystemsCaption, folder / "pages.tif");
        const HWND warning = shown(program, "several-images", IDS_SEVERAL_TITLE);
        click(warning, IDC_SEVERAL_NOT_AGAIN);
        program.answer(warning, IDOK);
        program.answer(shown(program, "subimage", IDS_SUBIMAGE_TITLE), IDOK);
        PostMessageW(main, WM_COMMAND, kCmdOpenByImageMagick, 0);
        answer_file_dialog(program, "open-by-imagemagick", kSystemsCaption, folder / "broken.tif");
        program.answer(shown(program, "open-error", IDS_OPEN_ERROR_TITLE), IDOK);
    }
    // What the command line makes of the same wishes.
    std::string script_of_command_line() const {
        const fs::path script = folder / "command line.scr";
        const std::wstring line = quoted_argument(fs::path(KELVANE_COMMAND_LINE).wstring()) +
                                  L" export " + quoted_argument(logo.wstring()) + L" -o " +
                                  quoted_argument(script.wstring()) +
                                  L" --op soften --layer 1 --unit mm --size 0.25";
        const std::wstring said = GetCommandOutput(line, true, true, false, SW_HIDE);
        EXPECT_TRUE(fs::exists(script)) << testing::PrintToString(said);
        return file_text(script);
    }

    static constexpr int kBlank = 300; // colour changes; the language dialog has 1200
    static constexpr int kStill = 3;   // looks
    static constexpr const char* kPalette = "basic-16.pal";
    // Not a temporary folder with a number in its name: windows that people look at show the path.
    const fs::path folder = fs::path(_wgetenv(L"PUBLIC")) / L"Kelvane";
    const SettingsFile settings{folder / "kelvane.ini"};
    // Under its own name Wine would wait for a window manager.
    const fs::path program_file = folder / "kelvane under test.exe";
    const fs::path logo = folder / "logo.png";
    const fs::path colours = folder / "colours.bmp";
};

TEST_P(Program, ShowsEveryDialogAndWritesTheCommandLinesScript) {
    const DrivenProgram program(program_file, {logo.wstring()});
    close_splash(program);
    const HWND main = program.window(L"KelvaneMain", LoadString(IDS_TITLE));
    SetWindowPos(main, nullptr, 40, 40, 760, 480, SWP_NOZORDER);
    look_at(program, main, "main-window");
    look_at_all(program, main, kLooksAtLogo);

    program.perform(main, kCmdSoften);
    export_script(program, main, L"0.25", folder / "logo.scr");
    const std::string script = file_text(folder / "logo.scr");
    EXPECT_GT(script.size(), 1000u);
    EXPECT_TRUE(script == script_of_command_line());
    export_script(program, main, L"100000", folder / "far.scr", "-again");
    program.answer(shown(program, "out-of-range", IDS_RANGE_TITLE), IDOK);

    PostMessageW(main, WM_COMMAND, kCmdOpen, 0);
    answer_file_dialog(program, "open", kSystemsCaption, colours);
    look_at(program, main, "two-images");
    look_at_all(program, main, kLooksAtColours);
    PostMessageW(main, WM_COMMAND, kCmdApplyPalette, 0);
    const HWND palette = shown(program, "palette", IDS_PALETTE_TITLE);
    EXPECT_EQ(text_in(GetDlgItem(palette, IDC_PALETTE_COUNT)),
              LoadString(IDS_PALETTE_COLOURS, {L"16"}));
    program.answer(palette, IDCANCEL);

    open_by_imagemagick(program, main);

    PostMessageW(main, WM_COMMAND, kCmdExit, 0);
    program.answer(shown(program, "save-question", IDS_PRODUCT_NAME), IDNO);
    EXPECT_EQ(program.exit_code(), 0u);
    EXPECT_EQ(read_setting(settings, settings::kUnit), 3);
    EXPECT_EQ(read_setting(settings, Numbered{settings::kRecentFile, 1}), folder / "pages.tif");
    EXPECT_EQ(read_setting(settings, settings::kSaveFolder), folder.wstring() + L'\\');
}

TEST(SplashWindow, ComesBeforeTheMainWindowAndGoesByItself) {
    const TemporaryFolder folder;
    fs::copy_file(KELVANE_PROGRAM, folder / "started.exe");
    const DrivenProgram program(folder / "started.exe", {});
    const HWND splash = program.window(L"#32770", L"Kelvane");
    RECT place{};
    GetWindowRect(splash, &place);
    // In the middle of the screen, where no main window was seen yet.
    EXPECT_NEAR(place.left + place.right, GetSystemMetrics(SM_CXSCREEN), 1);
    program.wait_for("its end", [&] { return !IsWindow(splash); });
}

INSTANTIATE_TEST_SUITE_P(BothLanguages, Program, testing::Values(kEnglishOffset, kGermanOffset));

} // namespace
} // namespace kelvane::test
