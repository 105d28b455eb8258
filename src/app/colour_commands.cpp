#include "app/colour_commands.h"

#include "app/form_operations.h"
#include "app/image_window.h"
#include "dialogs/frmHue.h"
#include "dialogs/frmPalette.h"
#include "dialogs/frmSW.h"

namespace kelvane::commands {

void darken(ImageDocument& document) {
    document.Fade();
}

void lighten(ImageDocument& document) {
    document.Lighten();
}

void colourise(MainServices& main, frmImage& form) {
    frmHue dialog(form.document().picture());
    dialog.show_modal(main.frame());
    if (dialog.Cancelled) return;
    process(main, form, [&](ImageDocument& document) { document.Colourise(dialog.Hue); });
}

void negative(ImageDocument& document) {
    document.NegativeImage();
}

void gray_scale(ImageDocument& document) {
    document.GrayScale();
}

void floyd_steinberg(ImageDocument& document) {
    document.Steinberg();
}

void apply_palette(MainServices& main, frmImage& form) {
    frmPalette dialog(main.settings(), form.document().picture());
    dialog.show_modal(main.frame());
    if (dialog.Cancelled) return;
    process(main, form, [&](ImageDocument& document) { document.ApplyPalette(dialog.FileName); });
}

void reduce(MainServices& main, frmImage& form) {
    frmSW dialog(main.settings(), form.document().picture());
    dialog.show_modal(main.frame());
    if (!dialog.result) return;
    process(main, form, [&](ImageDocument& document) { document.Reduce(*dialog.result); });
}

} // namespace kelvane::commands
