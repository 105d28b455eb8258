// window_probe PROGRAM ARGUMENT...: starts a packed program and looks at it from outside. Prints
// the caption of its main window when that has appeared, reads its input to the end, closes the
// window as a user would and gives the program's exit code. 100 and a message when any of it fails.
#include "convert/command_line.h"
#include "win/unique_handle.h"

#include <windows.h>

#include <cstdio>
#include <iterator>
#include <string>

namespace {

constexpr int kFailed = 100;
constexpr ULONGLONG kPatience = 60000; // milliseconds
constexpr DWORD kLook = 20;

struct Search {
    DWORD process;
    HWND window;
};

BOOL CALLBACK is_main_window(HWND window, LPARAM parameter) {
    Search& search = *reinterpret_cast<Search*>(parameter);
    wchar_t name[64]{};
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    GetClassNameW(window, name, std::size(name));
    if (process != search.process || std::wstring(name) != L"KelvaneMain") return TRUE;
    if (IsWindowVisible(window)) search.window = window;
    return FALSE;
}

HWND wait_for_window(const PROCESS_INFORMATION& program) {
    const ULONGLONG end = GetTickCount64() + kPatience;
    Search search{program.dwProcessId, nullptr};
    while (search.window == nullptr && GetTickCount64() < end &&
           WaitForSingleObject(program.hProcess, kLook) == WAIT_TIMEOUT)
        EnumWindows(is_main_window, reinterpret_cast<LPARAM>(&search));
    return search.window;
}

int fail(const char* what, HANDLE program) {
    std::fprintf(stderr, "window_probe: %s\n", what);
    TerminateProcess(program, kFailed);
    return kFailed;
}

int watch(const PROCESS_INFORMATION& program) {
    const HWND window = wait_for_window(program);
    if (window == nullptr) return fail("the main window does not appear", program.hProcess);
    wchar_t caption[256]{};
    GetWindowTextW(window, caption, std::size(caption));
    std::printf("%ls\n", caption);
    std::fflush(stdout);
    while (std::getchar() != EOF) {
    }

    PostMessageW(window, WM_CLOSE, 0, 0);
    if (WaitForSingleObject(program.hProcess, kPatience) != WAIT_OBJECT_0)
        return fail("the program does not end", program.hProcess);
    DWORD code = kFailed;
    GetExitCodeProcess(program.hProcess, &code);
    return static_cast<int>(code);
}

} // namespace

int wmain(int count, wchar_t** words) {
    std::wstring line;
    for (int i = 1; i < count; ++i)
        line += (i > 1 ? L" " : L"") + kelvane::quoted_argument(words[i]);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION program{};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &program))
        return fail("the program cannot be started", nullptr);
    const kelvane::UniqueHandle process(program.hProcess), thread(program.hThread);
    return watch(program);
}
