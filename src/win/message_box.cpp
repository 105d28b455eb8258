#include "win/message_box.h"

namespace kelvane::win {

int message_box(HWND owner, const std::wstring& text, const std::wstring& caption, UINT flags) {
    return MessageBoxW(owner, text.c_str(), caption.c_str(), flags);
}

} // namespace kelvane::win
