#include "dialogs/program_face.h"

#include "ids.h"

#include <algorithm>

namespace kelvane {

namespace {

// Not shared: the system would answer with the icon of any size that was loaded first.
win::Icon icon_of_size(int side) {
    return win::Icon(
        static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_KELVANE),
                                      IMAGE_ICON, side, side, LR_DEFAULTCOLOR)));
}

win::Font large_font(HWND dialog) {
    LOGFONTW description{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(dialog, WM_GETFONT, 0, 0)), sizeof description,
               &description);
    description.lfHeight *= 2;
    description.lfWeight = FW_BOLD;
    return win::Font(CreateFontIndirectW(&description));
}

} // namespace

ProgramFace show_program_face(HWND dialog, int icon, int name) {
    RECT area{};
    GetClientRect(GetDlgItem(dialog, icon), &area);
    ProgramFace face{icon_of_size(static_cast<int>(std::min(area.right, area.bottom))),
                     large_font(dialog)};
    SendDlgItemMessageW(dialog, icon, STM_SETICON, reinterpret_cast<WPARAM>(face.icon.get()), 0);
    SendDlgItemMessageW(dialog, name, WM_SETFONT, reinterpret_cast<WPARAM>(face.font.get()), TRUE);
    return face;
}

} // namespace kelvane
