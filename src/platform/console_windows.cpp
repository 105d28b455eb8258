#include "base/console.h"

#include "base/library_search.h"
#include "base/text.h"

#include <windows.h>

#include <shellapi.h>

#include <cstdio>
#include <fcntl.h>
#include <io.h>
#include <memory>

namespace kelvane {

// `argv` came through the system's code page and has lost what that cannot write.
std::vector<std::string> utf8_arguments(int, char**) {
    int count = 0;
    const std::unique_ptr<wchar_t*, decltype(&LocalFree)> arguments(
        CommandLineToArgvW(GetCommandLineW(), &count), LocalFree);
    std::vector<std::string> result;
    for (int i = 1; i < count; ++i)
        result.push_back(narrow_text(arguments.get()[i]));
    return result;
}

void prepare_console() {
    search_libraries_in_system_only();
    SetConsoleOutputCP(CP_UTF8);
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
}

bool standard_error_is_terminal() {
    return _isatty(_fileno(stderr)) != 0;
}

} // namespace kelvane
