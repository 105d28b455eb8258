// window_probe PROGRAM ARGUMENT...: starts a packed program and looks at it from outside. Prints
// the caption of its main window when that has appeared, reads its input to the end, closes the
// window as a user would and gives the program's exit code; 100 and a message when any of it fails.
#include "program/driven_program.h"

#include <cstdio>
#include <exception>

namespace {

int look_at(const std::filesystem::path& file, const std::vector<std::wstring>& arguments) {
    const kelvane::test::DrivenProgram program(file, arguments);
    const HWND window = program.window(L"KelvaneMain", L"Kelvane");
    std::printf("%ls\n", kelvane::test::text_in(window).c_str());
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }
    PostMessageW(window, WM_CLOSE, 0, 0);
    return static_cast<int>(program.exit_code());
}

} // namespace

int wmain(int count, wchar_t** words) {
    try {
        return look_at(words[1], {words + 2, words + count});
    } catch (const std::exception& error) {
        std::fprintf(stderr, "window_probe: %s\n", error.what());
        return 100;
    }
}
