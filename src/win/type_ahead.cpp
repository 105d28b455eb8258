#include "win/type_ahead.h"

#include <commctrl.h>

#include <cwctype>
#include <memory>
#include <string>

namespace kelvane::win {
namespace {

constexpr UINT_PTR kSubclassId = 2;
constexpr DWORD kLongestPause = 1000; // milliseconds between two letters

struct Typed {
    std::wstring letters;
    DWORD last = 0; // tick count of the last letter
};

std::wstring lower(std::wstring text) {
    for (wchar_t& letter : text)
        letter = static_cast<wchar_t>(std::towlower(letter));
    return text;
}

std::wstring entry(HWND list, int position) {
    const auto at = static_cast<WPARAM>(position);
    const LRESULT length = SendMessageW(list, CB_GETLBTEXTLEN, at, 0);
    if (length == CB_ERR) return {};
    std::wstring text(static_cast<std::size_t>(length), L'\0');
    SendMessageW(list, CB_GETLBTEXT, at, reinterpret_cast<LPARAM>(text.data()));
    return text;
}

bool begins_a_word(const std::wstring& text, const std::wstring& letters) {
    if (text.starts_with(letters)) return true;
    const std::size_t word = text.find_first_not_of(L' ', text.find(L' '));
    return word != std::wstring::npos && text.compare(word, letters.size(), letters) == 0;
}

// CB_ERR when there is none.
int find(HWND list, const std::wstring& letters) {
    const auto count = static_cast<int>(SendMessageW(list, CB_GETCOUNT, 0, 0));
    for (int position = 0; position < count; ++position)
        if (begins_a_word(lower(entry(list, position)), letters)) return position;
    return CB_ERR;
}

void select(HWND list, int position) {
    if (position == SendMessageW(list, CB_GETCURSEL, 0, 0)) return;
    SendMessageW(list, CB_SETCURSEL, static_cast<WPARAM>(position), 0);
    SendMessageW(GetParent(list), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(list), CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(list));
}

void type(HWND list, Typed& typed, wchar_t letter) {
    if (GetTickCount() - typed.last > kLongestPause) typed.letters.clear();
    typed.last = GetTickCount();
    const std::wstring next(1, static_cast<wchar_t>(std::towlower(letter)));
    typed.letters += next;
    int found = find(list, typed.letters);
    if (found == CB_ERR) found = find(list, typed.letters = next);
    if (found != CB_ERR) select(list, found);
}

LRESULT CALLBACK typed_into(HWND list, UINT message, WPARAM w, LPARAM l, UINT_PTR id,
                            DWORD_PTR data) {
    auto* const typed = reinterpret_cast<Typed*>(data);
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(list, typed_into, id);
        delete typed;
    } else if (message == WM_CHAR && static_cast<wchar_t>(w) >= L' ') {
        type(list, *typed, static_cast<wchar_t>(w));
        return 0;
    }
    return DefSubclassProc(list, message, w, l);
}

} // namespace

void find_by_typing(HWND list) {
    auto typed = std::make_unique<Typed>();
    if (SetWindowSubclass(list, typed_into, kSubclassId, reinterpret_cast<DWORD_PTR>(typed.get())))
        typed.release(); // deleted with the list
}

} // namespace kelvane::win
