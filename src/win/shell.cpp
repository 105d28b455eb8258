#include "win/shell.h"

#include "win/text_or_null.h"

#include <shellapi.h>

namespace kelvane::win {

int shell_execute(HWND owner, const ShellCommand& command) {
    const HINSTANCE answer =
        ShellExecuteW(owner, text_or_null(command.operation), command.file.c_str(),
                      text_or_null(command.parameters), text_or_null(command.folder), command.show);
    return static_cast<int>(reinterpret_cast<INT_PTR>(answer));
}

} // namespace kelvane::win
