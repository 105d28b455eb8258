#include "win/key_filter.h"

#include "win/clipboard.h"

#include <commctrl.h>

#include <algorithm>
#include <exception>
#include <string>

namespace kelvane::win {
namespace {

constexpr UINT_PTR kFilterId = 1;
constexpr UINT_PTR kPointsId = 2;

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

// Up to the first line break, as the system pastes into a field of one line.
std::wstring pasted_line(HWND edit) {
    std::wstring text = Clipboard(edit).text();
    text.resize(std::min(text.find_first_of(L"\r\n"), text.size()));
    std::ranges::replace(text, L',', L'.');
    return text;
}

// No exception may pass through the system's calls: what cannot be read is not pasted.
void paste_points(HWND edit) {
    try {
        const std::wstring text = pasted_line(edit);
        if (!text.empty())
            SendMessageW(edit, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text.c_str()));
    } catch (const std::exception&) {
        MessageBeep(MB_OK);
    }
}

LRESULT CALLBACK with_points(HWND edit, UINT message, WPARAM w, LPARAM l, UINT_PTR id,
                             DWORD_PTR /*data*/) {
    if (message == WM_NCDESTROY) RemoveWindowSubclass(edit, with_points, id);
    if (message == WM_PASTE) {
        paste_points(edit);
        return 0;
    }
    if (message == WM_CHAR && w == L',') w = L'.';
    return DefSubclassProc(edit, message, w, l);
}

} // namespace

void turn_commas_into_points(HWND edit) {
    SetWindowSubclass(edit, with_points, kPointsId, 0);
}

void filter_keys(HWND edit, bool (*accepts)(wchar_t)) {
    SetWindowSubclass(edit, filtered, kFilterId, reinterpret_cast<DWORD_PTR>(accepts));
}

} // namespace kelvane::win
