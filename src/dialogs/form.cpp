#include "dialogs/form.h"

#include "dialogs/preview_size.h"
#include "win/picture_box.h"

namespace kelvane {

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

void Form::show_icon(int id, const wchar_t* icon) const {
    SendMessageW(control(id), STM_SETICON, reinterpret_cast<WPARAM>(LoadIconW(nullptr, icon)), 0);
}

bool Form::refuse(int field, const std::wstring& reason, UINT icon) const {
    win::message_box(window(), reason, win::window_text(window()), MB_OK | icon);
    SendMessageW(window(), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control(field)), TRUE);
    return false;
}

} // namespace kelvane
