#include "win/arrow_keys.h"

#include <commctrl.h>

namespace kelvane::win {
namespace {

constexpr UINT_PTR kArrowsId = 2;

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

} // namespace

void take_arrow_keys(HWND control) {
    SetWindowSubclass(control, with_arrows, kArrowsId, 0);
}

} // namespace kelvane::win
