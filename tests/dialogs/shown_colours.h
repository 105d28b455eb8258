// What a dialog's preview shows.
#pragma once

#include <windows.h>

#include <set>

namespace kelvane::test {

/// Colours in the upper left of a picture box, a little inside, as they are on the screen.
inline std::set<COLORREF> shown_in(HWND dialog, int box) {
    const HWND window = GetDlgItem(dialog, box);
    UpdateWindow(window);
    const HDC context = GetDC(window);
    std::set<COLORREF> colours;
    for (int x = 40; x < 60; ++x)
        for (int y = 40; y < 60; ++y)
            colours.insert(GetPixel(context, x, y));
    ReleaseDC(window, context);
    return colours;
}

} // namespace kelvane::test
