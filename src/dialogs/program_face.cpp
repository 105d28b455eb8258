#include "dialogs/program_face.h"

#include "ids.h"

#include <algorithm>

namespace kelvane {

void show_program_icon(HWND control) {
    RECT area{};
    GetClientRect(control, &area);
    const int side = static_cast<int>(std::min(area.right, area.bottom));
    const HANDLE icon = LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_KELVANE),
                                   IMAGE_ICON, side, side, LR_SHARED);
    SendMessageW(control, STM_SETICON, reinterpret_cast<WPARAM>(icon), 0);
}

win::Font use_large_font(HWND control) {
    LOGFONTW description{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)), sizeof description,
               &description);
    description.lfHeight *= 2;
    description.lfWeight = FW_BOLD;
    win::Font font(CreateFontIndirectW(&description));
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), FALSE);
    return font;
}

} // namespace kelvane
