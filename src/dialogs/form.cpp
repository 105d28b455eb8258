#include "dialogs/form.h"

#include "dialogs/preview_size.h"
#include "win/picture_box.h"
#include "win/placement.h"

#include <algorithm>

namespace kelvane {
namespace {

constexpr LONG kGapAboveButtons = 7; // in dialog units

} // namespace

void Form::loadResources() const {
    set_title(LoadString(title_));
    for (const Caption& caption : captions_)
        set_text(caption.control, LoadString(caption.text));
}

INT_PTR Form::on_message(UINT message, WPARAM /*w*/, LPARAM l) {
    if (message != WM_DRAWITEM) return FALSE;
    draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(l));
    return TRUE;
}

void Form::fit_preview(int box) const {
    win::fit_picture_box(control(box), kPreviewEdge, kPreviewEdge);
}

void Form::draw_preview(const DRAWITEMSTRUCT& box, const cDIBSection& picture) const {
    win::draw_picture_box(box, picture, win::picture_zoom(window()));
}

void Form::fit_height() const {
    RECT place{};
    const auto is_button = [this](HWND child) {
        return child == control(IDOK) || child == control(IDCANCEL);
    };
    LONG lowest = 0;
    for (HWND child = GetWindow(window(), GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        if (is_button(child)) continue;
        GetWindowRect(child, &place);
        lowest = std::max(lowest, place.bottom);
    }
    RECT gap{0, 0, 0, kGapAboveButtons};
    MapDialogRect(window(), &gap);
    GetWindowRect(control(IDOK), &place);
    const LONG down = lowest + gap.bottom - place.top;
    for (const int button : {IDOK, IDCANCEL})
        win::move_by(control(button), 0, down);
    const SIZE size = win::size_of(window());
    SetWindowPos(window(), nullptr, 0, 0, size.cx, size.cy + down,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void Form::show_icon(int id, const wchar_t* icon) const {
    SendMessageW(control(id), STM_SETICON, reinterpret_cast<WPARAM>(LoadIconW(nullptr, icon)), 0);
}

bool Form::refuse(int field, const std::wstring& reason, UINT icon) const {
    win::message_box(window(), reason, win::window_text(window()), MB_OK | icon);
    SendMessageW(window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control(field)), TRUE);
    return false;
}

} // namespace kelvane
