// Documents, programs and web pages opened by the shell.
#pragma once

#include <windows.h>

#include <string>

namespace kelvane::win {

/// What is to be opened, as ShellExecute takes it.
struct ShellCommand {
    /// A document, a program or the address of a page.
    std::wstring file;
    /// "open", "print" and so on; empty: the default operation of the file's type.
    std::wstring operation = {};
    std::wstring parameters = {};
    /// The working folder; empty: the program's own.
    std::wstring folder = {};
    int show = SW_SHOWNORMAL;
};

/// An answer above this number means success, the others are error codes.
inline constexpr int kLastShellError = 32;

/// Returns the shell's answer without waiting for the program. `owner` owns the message boxes that
/// the shell itself shows.
int shell_execute(HWND owner, const ShellCommand& command);

} // namespace kelvane::win
