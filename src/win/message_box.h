// The program's message boxes.
#pragma once

#include <windows.h>

#include <string>

namespace kelvane::win {

/// Shows a message and waits for the answer (IDOK, IDYES, ...). `flags`: MB_OK, MB_YESNOCANCEL,
/// MB_ICONEXCLAMATION and so on. A dialog or a document window as owner stands for its top-level
/// window.
int message_box(HWND owner, const std::wstring& text, const std::wstring& caption, UINT flags);

} // namespace kelvane::win
