#include "win/placement.h"

namespace kelvane::win {

void move_by(HWND control, LONG right, LONG down) {
    RECT place{};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&place), 2);
    SetWindowPos(control, nullptr, place.left + right, place.top + down, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

SIZE size_of(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return {place.right - place.left, place.bottom - place.top};
}

} // namespace kelvane::win
