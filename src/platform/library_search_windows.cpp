#include "base/library_search.h"

#include <windows.h>

#include <iterator>

namespace kelvane {
namespace {

// Unpatched Windows 7 lacks the functions, and a program that imports them would not start there.
template <class Function> Function kernel_function(const char* name) {
    return reinterpret_cast<Function>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), name)));
}

} // namespace

void search_libraries_in_system_only() {
    SetDllDirectoryW(L"");
    using Add = void*(WINAPI*)(const wchar_t*);
    using SetDefault = BOOL(WINAPI*)(DWORD);
    const auto add = kernel_function<Add>("AddDllDirectory");
    const auto set_default = kernel_function<SetDefault>("SetDefaultDllDirectories");
    if (add == nullptr || set_default == nullptr) return;
    wchar_t windows[MAX_PATH];
    const UINT length = GetSystemWindowsDirectoryW(windows, std::size(windows));
    if (length > 0 && length < std::size(windows)) add(windows);
    set_default(LOAD_LIBRARY_SEARCH_SYSTEM32 | LOAD_LIBRARY_SEARCH_USER_DIRS);
}

} // namespace kelvane
