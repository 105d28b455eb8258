#include "win/arrow_keys.h"

#include <commctrl.h>

namespace kelvane::win {
namespace {

constexpr UINT_PTR kArrowsId = 2;
constexpr UINT_PTR kGridArrowsId = 3;

LRESULT CALLBACK with_arrows(HWND control, UINT message, WPARAM w, LPARAM l, UINT_PTR id,
                             DWORD_PTR /*unused*/) {
    switch (message) {
    case WM_GETDLGCODE:
        return DefSubclassProc(control, message, w, l) | DLGC_WANTARROWS;
    case WM_KEYDOWN:
        if (w < VK_LEFT || w > VK_DOWN) break;
        return SendMessageW(GetParent(control), message, w, l);
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        InvalidateRect(control, nullptr, FALSE);
        break;
    case WM_NCDESTROY:
        RemoveWindowSubclass(control, with_arrows, id);
        break;
    default:
        break;
    }
    return DefSubclassProc(control, message, w, l);
}

bool leaves_text(HWND edit, WPARAM key) {
    if (GetKeyState(VK_SHIFT) < 0 || GetKeyState(VK_CONTROL) < 0) return false;
    DWORD first = 0, end = 0; // of the selection
    SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&end));
    switch (key) {
    case VK_LEFT:
        return first == 0;
    case VK_RIGHT:
        return end == static_cast<DWORD>(GetWindowTextLengthW(edit));
    default:
        return key == VK_UP || key == VK_DOWN;
    }
}

LRESULT CALLBACK passing_arrows_on(HWND edit, UINT message, WPARAM w, LPARAM l, UINT_PTR id,
                                   DWORD_PTR /*unused*/) {
    if (message == WM_NCDESTROY) RemoveWindowSubclass(edit, passing_arrows_on, id);
    if (message == WM_KEYDOWN && leaves_text(edit, w))
        return SendMessageW(GetParent(edit), message, w, l);
    return DefSubclassProc(edit, message, w, l);
}

} // namespace

void take_arrow_keys(HWND control) {
    SetWindowSubclass(control, with_arrows, kArrowsId, 0);
}

void pass_on_arrow_keys(HWND edit) {
    SetWindowSubclass(edit, passing_arrows_on, kGridArrowsId, 0);
}

} // namespace kelvane::win
