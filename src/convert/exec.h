// A console program with its parameters.
#pragma once

#include "convert/get_cmd_output.h"

#include <string>

namespace kelvane {

/// What to run, for one run or several. Both runs capture both streams, as OEM text, and return
/// what `GetCommandOutput` returns; without a program they return "AppName() property not set.".
struct Exec {
    std::wstring AppName;          ///< the program, in quotation marks if its path has blanks
    std::wstring Params;           ///< its parameters, each quoted where necessary
    unsigned short ShowWindow = 0; ///< show state of the program's window; 0 hides it
    KeepWaiting keep_waiting = {}; ///< see `GetCommandOutput`

    /// Through the command interpreter (COMSPEC), so that its own commands work as well.
    std::wstring DosExec() const;
    /// Directly.
    std::wstring WinExec() const;
};

} // namespace kelvane
