#include "app/picture_menu.h"

#include "app/commands.h"
#include "texts/string_table.h"
#include "win/gdi.h"

#include "ids.h"

#include <string>

namespace kelvane {
namespace {

using Zoom = void (PictureView::*)();

struct Entry {
    int caption;        // 0: a separator
    const wchar_t* key; // together with Ctrl; null: none
    Zoom zoom;
    unsigned command; // if it is no zoom
};

constexpr Entry kEntries[] = {
    {IDS_MENU_ZOOM_IN, L"+", &PictureView::zoom_in, 0},
    {IDS_MENU_ZOOM_OUT, L"-", &PictureView::zoom_out, 0},
    {IDS_MENU_ONE_TO_ONE, L"0", &PictureView::zoom_one_to_one, 0},
    {IDS_MENU_FIT, L"9", &PictureView::zoom_to_fit, 0},
    {},
    {IDS_MENU_COPY, L"C", nullptr, kCmdCopy},
    {IDS_MENU_CROP_TO_SELECTION, nullptr, nullptr, kCmdCropToSelection},
    {},
    {IDS_MENU_EXPORT, L"E", nullptr, kCmdExport},
};

win::Menu filled_menu(bool selection) {
    win::Menu menu(CreatePopupMenu());
    for (UINT_PTR i = 0; i < std::size(kEntries); ++i) {
        const Entry& entry = kEntries[i];
        if (entry.caption == 0) {
            AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
            continue;
        }
        std::wstring caption = LoadString(entry.caption);
        if (entry.key != nullptr) caption += L'\t' + LoadString(IDS_KEY_CONTROL) + entry.key;
        const bool greyed = entry.command == kCmdCropToSelection && !selection;
        AppendMenuW(menu.get(), MF_STRING | (greyed ? MF_GRAYED : 0u), i + 1, caption.c_str());
    }
    return menu;
}

} // namespace

void show_picture_menu(PictureView& view, HWND window, HWND frame, POINT point) {
    const win::Menu menu = filled_menu(view.selection().has_value());
    POINT place = point;
    ClientToScreen(window, &place);
    const int chosen = TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, place.x, place.y,
                                      0, window, nullptr);
    if (chosen == 0) return;
    const Entry& entry = kEntries[chosen - 1];
    if (entry.zoom == nullptr) {
        SendMessageW(frame, WM_COMMAND, entry.command, 0);
        return;
    }
    const PictureView::FixedPoint fixed(view, point);
    (view.*entry.zoom)();
}

} // namespace kelvane
