// A console program with its parameters.
#pragma once

#include "convert/get_cmd_output.h"

#include <optional>
#include <string>

namespace kelvane {

/// The command line that hands `command` to the interpreter of a platform (a VER_PLATFORM_ number).
/// Nothing for Win32s; on the 9x family the name of the redirecting stub and nothing behind it.
std::optional<std::wstring> interpreter_line(unsigned long platform, std::wstring command);

/// What to run, for one run or several. Both runs capture both streams, as OEM text, and return
/// what `GetCommandOutput` returns; without a program they return "AppName() property not set.".
struct Exec {
    std::wstring AppName;          ///< the program, in quotation marks if its path has blanks
    std::wstring Params;           ///< its parameters, each quoted where necessary
    unsigned short ShowWindow = 0; ///< show state of the program's window; 0 hides it
    KeepWaiting keep_waiting = {}; ///< see `GetCommandOutput`
    std::wstring Folder = {};      ///< where it runs; see `GetCommandOutput`

    /// Through the command interpreter (COMSPEC), so that its own commands work as well.
    std::wstring DosExec() const;
    /// Directly.
    std::wstring WinExec() const;
};

} // namespace kelvane
