#include "win/wait_cursor.h"

namespace kelvane::win {

void renew_cursor() {
    POINT place;
    if (!GetCursorPos(&place)) return;
    const HWND window = WindowFromPoint(place);
    if (GetWindowThreadProcessId(window, nullptr) != GetCurrentThreadId()) return;
    const LRESULT part = SendMessageW(window, WM_NCHITTEST, 0, MAKELPARAM(place.x, place.y));
    SendMessageW(window, WM_SETCURSOR, reinterpret_cast<WPARAM>(window),
                 MAKELPARAM(part, WM_MOUSEMOVE));
}

} // namespace kelvane::win
