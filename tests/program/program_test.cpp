// The finished programs: kelvane.exe started and used from outside, and kelvane-cli.exe beside it.
#include "driven_program.h"

#include "app/commands.h"
#include "convert/get_cmd_output.h"
#include "convert/quoted_argument.h"
#include "settings/catalogue.h"
#include "support/temporary_folder.h"
#include "support/windows/modal_script.h"
#include "texts/string_table.h"

#include "ids.h"

#include <gtest/gtest.h>

namespace kelvane::test {
namespace {

namespace fs = std::filesystem;

constexpr int kMessageText = 0xFFFF; // control of a message box

class Program : public testing::Test {
  protected:
    Program() {
        const fs::path built = KELVANE_PROGRAM;
        fs::copy_file(built, program_file);
        fs::copy_file(built.parent_path() / "basic-16.pal", folder / "basic-16.pal");
        fs::copy_file(fs::path(KELVANE_SAMPLES) / "logo.png", logo);
    }
    ~Program() override { set_language_offset(kEnglishOffset); }

    static HWND dialog(const DrivenProgram& program, int title) {
        return program.window(L"#32770", LoadString(title));
    }
    static void answer_message(const DrivenProgram& program, int title, const std::wstring& text,
                               int button = IDOK) {
        const HWND box = dialog(program, title);
        EXPECT_EQ(text_in(GetDlgItem(box, kMessageText)), text);
        program.answer(box, button);
    }
    // Fully traced polygons in millimetres on layer 1.
    static std::string exported(const DrivenProgram& program, HWND main, const fs::path& script) {
        PostMessageW(main, WM_COMMAND, kCmdExport, 0);
        const HWND options = dialog(program, IDS_EXPORT_TITLE);
        click(options, IDC_EXPORT_FULL);
        click(options, IDC_EXPORT_FULL_POLYGON);
        type_text(options, IDC_EXPORT_SIZE, L"0.25");
        choose_in_list(options, IDC_EXPORT_UNIT, 3);
        choose_in_list(options, IDC_EXPORT_LAYER, 0);
        program.answer(options, IDOK);
        const HWND file_dialog = dialog(program, IDS_EXPORT_FILE_TITLE);
        type_file_name(file_dialog, script.wstring());
        program.answer(file_dialog, IDOK);
        // The file dialog creates an empty file for a moment; the script then appears complete.
        std::error_code missing;
        program.wait_for("the script",
                         [&] { return fs::file_size(script, missing) > 0 && !missing; });
        return file_text(script);
    }
    // The command line with the same options.
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

    const TemporaryFolder folder;
    const SettingsFile settings{folder / "kelvane.ini"};
    // Under its own name Wine would wait for a window manager.
    const fs::path program_file = folder / "kelvane under test.exe";
    const fs::path logo = folder / "logo.png";
};

TEST_F(Program, WritesTheCommandLinesScriptAndAsksBeforeItCloses) {
    write_setting(settings, settings::kLanguage, kGermanOffset);
    set_language_offset(kGermanOffset);
    const DrivenProgram program(program_file, {logo.wstring()});
    const HWND splash = dialog(program, IDS_PRODUCT_NAME);
    PostMessageW(splash, WM_LBUTTONDOWN, 0, 0);
    program.wait_for("the end of the splash window", [&] { return !IsWindow(splash); });
    const HWND main = program.window(L"KelvaneMain", LoadString(IDS_TITLE));
    SendMessageW(main, WM_COMMAND, kCmdSoften, 0);
    const std::string script = exported(program, main, folder / "logo.scr");
    EXPECT_GT(script.size(), 1000u);
    EXPECT_TRUE(script == script_of_command_line());
    PostMessageW(main, WM_COMMAND, kCmdApplyPalette, 0);
    const HWND palette = dialog(program, IDS_PALETTE_TITLE);
    EXPECT_EQ(text_in(GetDlgItem(palette, IDC_PALETTE_COUNT)), L"16 Farben");
    program.answer(palette, IDCANCEL);

    PostMessageW(main, WM_COMMAND, kCmdExit, 0);
    answer_message(program, IDS_PRODUCT_NAME,
                   L"Das Bild 'logo.png' wurde geändert.\r\n\r\nMöchten Sie es speichern?", IDNO);
    EXPECT_EQ(program.exit_code(), 0u);
    EXPECT_EQ(read_setting(settings, settings::kUnit), 3);
    EXPECT_EQ(read_setting(settings, Numbered{settings::kRecentFile, 1}), logo);
    EXPECT_EQ(read_setting(settings, settings::kSaveFolder), folder.path().wstring() + L'\\');
}

TEST_F(Program, OpensTheOtherArgumentsWhenOneIsNoFile) {
    const DrivenProgram program(program_file, {L"", logo.wstring()});
    answer_message(program, IDS_ERROR_TITLE,
                   L"An error occured trying to open this file: No such file or directory");
    PostMessageW(program.window(L"KelvaneMain", L""), WM_COMMAND, kCmdExit, 0);
    EXPECT_EQ(program.exit_code(), 0u);
    EXPECT_EQ(read_setting(settings, Numbered{settings::kRecentFile, 1}), logo);
}

TEST_F(Program, SaysHowToMendALanguageThatDoesNotExist) {
    write_setting(settings, settings::kLanguage, 5);
    const DrivenProgram program(program_file, {});
    answer_message(program, IDS_PRODUCT_NAME,
                   L"The settings file " + (folder / "kelvane.ini").wstring() +
                       L" asks for a language that does not exist: language=5. Please change this "
                       L"line in its section [global] to language=10000 (English) or language=0 "
                       L"(German), or delete the line.");
    EXPECT_EQ(program.exit_code(), 1u);
}

TEST_F(Program, SplashWindowComesBeforeTheMainWindowAndGoesByItself) {
    const DrivenProgram program(program_file, {});
    const HWND splash = dialog(program, IDS_PRODUCT_NAME);
    RECT place{};
    GetWindowRect(splash, &place);
    // In the middle of the screen, where no main window was seen yet.
    EXPECT_NEAR(place.left + place.right, GetSystemMetrics(SM_CXSCREEN), 1);
    program.wait_for("its end", [&] { return !IsWindow(splash); });
}

} // namespace
} // namespace kelvane::test
