// kelvane.exe: the desktop program. Files named on the command line are opened.
#include "app/error_text.h"
#include "app/main_window.h"
#include "dialogs/frmSplash.h"
#include "platform/com_windows.h"
#include "platform/library_search_windows.h"
#include "settings/string_table.h"
#include "win/gdi.h"
#include "win/message_box.h"

#include <windows.h>

#include <shellapi.h>

#include <filesystem>
#include <span>

namespace kelvane {
namespace {

struct FreeLocal {
    void operator()(wchar_t** words) const { LocalFree(words); }
};

void open_arguments(mfrmMain& main) {
    int count = 0;
    const std::unique_ptr<wchar_t*, FreeLocal> words(CommandLineToArgvW(GetCommandLineW(), &count));
    for (int i = 1; i < count; ++i)
        main.open_file(std::filesystem::absolute(words.get()[i]).wstring());
}

int run(int show) {
    const ComScope com; // for the system's file dialogs
    const SettingsFile settings = SettingsFile::of_program();
    frmSplash splash(KELVANE_VERSION);
    mfrmMain main(settings); // sets the language
    ShowWindow(main.window(), show);
    splash.show_modeless(main.window()); // owned, it stays before the window
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
