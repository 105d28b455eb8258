// Menu entries found by their captions.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace kelvane::test {

inline std::wstring menu_text(HMENU menu, int position) {
    wchar_t text[256] = L"";
    GetMenuStringW(menu, static_cast<UINT>(position), text, std::size(text), MF_BYPOSITION);
    return text;
}

inline std::vector<std::wstring> menu_texts(HMENU menu) {
    std::vector<std::wstring> texts;
    for (int i = 0; i < GetMenuItemCount(menu); ++i)
        texts.push_back(menu_text(menu, i));
    return texts;
}

/// The command of the entry at a path of captions, without shortcuts: "&Edit|&Undo". 0: no entry.
inline unsigned menu_command(HMENU menu, const std::wstring& path) {
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        const std::wstring text = menu_text(menu, i).substr(0, menu_text(menu, i).find(L'\t'));
        if (path == text) return GetMenuItemID(menu, i);
        if (path.starts_with(text + L'|'))
            return menu_command(GetSubMenu(menu, i), path.substr(text.size() + 1));
    }
    return 0;
}

} // namespace kelvane::test
