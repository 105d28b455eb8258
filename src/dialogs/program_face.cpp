#include "dialogs/program_face.h"

#include "ids.h"

#include <algorithm>

namespace kelvane {
namespace {

win::Font large_font(HWND dialog) {
    LOGFONTW description{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(dialog, WM_GETFONT, 0, 0)), sizeof description,
               &description);
    description.lfHeight *= 2;
    description.lfWeight = FW_BOLD;
    return win::Font(CreateFontIndirectW(&description));
}

} // namespace

// Without LR_SHARED, with which the system returns the icon in the size that was loaded first.
win::Icon program_icon(int width, int height) {
    return win::Icon(
        static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_KELVANE),
                                      IMAGE_ICON, width, height, LR_DEFAULTCOLOR)));
}

ProgramFace show_program_face(HWND dialog, int icon, int name) {
    RECT area{};
    GetClientRect(GetDlgItem(dialog, icon), &area);
    const int side = static_cast<int>(std::min(area.right, area.bottom));
    ProgramFace face{program_icon(side, side), large_font(dialog)};
    SendDlgItemMessageW(dialog, icon, STM_SETICON, reinterpret_cast<WPARAM>(face.icon.get()), 0);
    SendDlgItemMessageW(dialog, name, WM_SETFONT, reinterpret_cast<WPARAM>(face.font.get()), TRUE);
    return face;
}

} // namespace kelvane
