// kelvane.exe: the desktop program. Files named on the command line are opened.
#include "app/main_window.h"
#include "base/com_scope.h"
#include "base/library_search.h"
#include "dialogs/frmSplash.h"
#include "texts/error_text.h"
#include "texts/string_table.h"
#include "win/gdi.h"
#include "win/message_box.h"

#include <windows.h>

#include <shellapi.h>

#include <filesystem>
#include <memory>
#include <string>
#include <system_error>

namespace kelvane {
namespace {

struct FreeLocal {
    void operator()(wchar_t** words) const { LocalFree(words); }
};

// A word that is no valid path is returned unchanged; opening it then reports the error.
std::wstring full_path(const wchar_t* word) {
    std::error_code error;
    const std::filesystem::path path = std::filesystem::absolute(word, error);
    return error ? word : path.wstring();
}

void open_arguments(mfrmMain& main) {
    int count = 0;
    const std::unique_ptr<wchar_t*, FreeLocal> words(CommandLineToArgvW(GetCommandLineW(), &count));
    for (int i = 1; i < count; ++i)
        main.open_file(full_path(words.get()[i]));
}

int run(int show) {
    const ComScope com; // for the system's file dialogs
    const SettingsFile settings = SettingsFile::of_program();
    frmSplash splash(KELVANE_VERSION);
    mfrmMain main(settings);             // sets the language
    splash.show_modeless(main.window()); // before the main window is shown
    main.show(show);
    // Stays in front of its owner, which has the keyboard from the start.
    SetWindowPos(splash.window(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    UpdateWindow(main.window());
    {
        const win::WindowContext screen(nullptr);
        main.check_colour_depth(GetDeviceCaps(screen.get(), BITSPIXEL));
    }
    open_arguments(main);
    return main.run();
}

} // namespace
} // namespace kelvane

int WINAPI wWinMain(HINSTANCE, HINSTANCE, wchar_t*, int show) {
    kelvane::search_libraries_in_system_only();
    try {
        return kelvane::run(show);
    } catch (const std::exception& error) {
        kelvane::win::message_box(nullptr, kelvane::error_text(error), kelvane::kApplicationTitle,
                                  MB_OK | MB_ICONERROR);
        return 1;
    }
}
