// Documents, programs and web pages opened by the shell.
#pragma once

#include <windows.h>

#include <string>

namespace kelvane::win {

/// What is to be opened, as ShellExecute takes it.
struct ShellCommand {
    /// A document, a program or the address of a page.
    std::wstring file;
    /// "open", "print" and so on; empty: the usual one for the file.
    std::wstring operation = {};
    std::wstring parameters = {};
    /// The working folder; empty: the program's own.
    std::wstring folder = {};
    int show = SW_SHOWNORMAL;
};

/// Answers above this one mean success, and each of the others a failure of its own.
inline constexpr int kLastShellError = 32;

/// The shell's answer. It waits for nothing. `owner` is for questions of the shell's own.
int shell_execute(HWND owner, const ShellCommand& command);

} // namespace kelvane::win
