#include "win/key_filter.h"

#include <commctrl.h>

namespace kelvane::win {
namespace {

constexpr UINT_PTR kFilterId = 1;

LRESULT CALLBACK filtered(HWND edit, UINT message, WPARAM w, LPARAM l, UINT_PTR id,
                          DWORD_PTR accepts) {
    if (message == WM_NCDESTROY) RemoveWindowSubclass(edit, filtered, id);
    const auto character = static_cast<wchar_t>(w);
    if (message == WM_CHAR && character >= L' ' &&
        !reinterpret_cast<bool (*)(wchar_t)>(accepts)(character)) {
        MessageBeep(MB_OK);
        return 0;
    }
    return DefSubclassProc(edit, message, w, l);
}

} // namespace

void filter_keys(HWND edit, bool (*accepts)(wchar_t)) {
    SetWindowSubclass(edit, filtered, kFilterId, reinterpret_cast<DWORD_PTR>(accepts));
}

} // namespace kelvane::win
