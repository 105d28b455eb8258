// Menu entries by what the user reads.
#pragma once

#include <windows.h>

#include <sstream>
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
    std::wistringstream parts(path);
    std::wstring part;
    int position = -1;
    while (std::getline(parts, part, L'|')) {
        if (position >= 0) menu = GetSubMenu(menu, position);
        for (position = GetMenuItemCount(menu) - 1; position >= 0; --position)
            if (const std::wstring text = menu_text(menu, position);
                text.substr(0, text.find(L'\t')) == part)
                break;
        if (position < 0) return 0;
    }
    return GetMenuItemID(menu, position);
}

} // namespace kelvane::test
