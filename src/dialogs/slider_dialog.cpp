#include "dialogs/slider_dialog.h"

#include "dialogs/slider.h"

namespace kelvane {

SliderDialog::SliderDialog(int template_id, int title, std::span<const Caption> captions,
                           const Controls& controls, const cDIBSection& picture)
    : Form(template_id, title, captions), controls_(controls), preview_(picture) {
    register_sliders();
}

void SliderDialog::start() {
    density_changed();
    follow_field();
}

void SliderDialog::follow_field() {
    const std::optional<int> position = typed_position();
    if (!position) return;
    set_slider_position(control(controls_.slider), *position);
    preview_.show(control(controls_.preview), [this](cDIBSection& picture) { apply(picture); });
}

void SliderDialog::density_changed() {
    preview_.fit(control(controls_.preview));
    fit_height();
}

void SliderDialog::on_command(int control, int notification) {
    if (control == controls_.field && notification == EN_CHANGE) follow_field();
}

INT_PTR SliderDialog::on_message(UINT message, WPARAM w, LPARAM l) {
    if (message != WM_HSCROLL) return Form::on_message(message, w, l);
    set_text(controls_.field, text_at(slider_position(control(controls_.slider))));
    return TRUE;
}

} // namespace kelvane
