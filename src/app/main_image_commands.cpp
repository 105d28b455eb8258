// Commands of mfrmMain whose dialogs ask how to change the picture.
#include "app/main_window.h"

#include "app/busy.h"
#include "dialogs/frmCombination.h"
#include "dialogs/frmCustomFilter.h"
#include "dialogs/frmHue.h"
#include "dialogs/frmNewSize.h"
#include "dialogs/frmNoise.h"
#include "dialogs/frmPalette.h"
#include "dialogs/frmSW.h"
#include "texts/error_text.h"
#include "texts/string_table.h"
#include "win/message_box.h"

#include "ids.h"

namespace kelvane {
void mfrmMain::add_noise(frmImage& form) {
    frmNoise dialog(form.document().picture());
    dialog.show_modal(window());
    if (dialog.Cancelled) return;
    process(form,
            [&](ImageDocument& document) { document.AddNoise(dialog.Random, dialog.Percent); });
}

void mfrmMain::custom_filter(frmImage& form) {
    frmCustomFilter dialog(custom_filter_);
    dialog.show_modal(window());
    if (dialog.Cancelled) return;
    process(form, [&](ImageDocument& document) {
        document.LoadCustomFilter(custom_filter_);
        document.ProcessImage(kCustom);
    });
}

void mfrmMain::resample(frmImage& form) {
    frmNewSize dialog(settings_, form.document().ImageWidth(), form.document().ImageHeight());
    dialog.show_modal(window());
    if (dialog.Cancelled) return;
    process(form,
            [&](ImageDocument& document) { document.Resample(dialog.NewWidth, dialog.NewHeight); });
}

// The active picture is proposed first.
void mfrmMain::combine(frmImage& active) {
    const auto source = [](frmImage& form) {
        return CombinationSource{form.document().FileTitle(), &form.document().picture()};
    };
    std::vector<CombinationSource> sources{source(active)};
    for (const auto& form : forms_)
        if (form.get() != &active) sources.push_back(source(*form));
    frmCombination dialog(sources);
    dialog.show_modal(window());
    if (dialog.Cancelled) return;

    const auto chosen = [&](std::size_t i) -> const cDIBSection& {
        return *sources[static_cast<std::size_t>(dialog.ImageSource[i])].picture;
    };
    new_form([&](frmImage& combined) {
        const bool done = operate(combined, [&](ImageDocument& document) {
            document.Combine(chosen(0), chosen(1), dialog.NewImageWidth, dialog.NewImageHeight,
                             dialog.combination);
        });
        if (done) combined.show_new();
        return done;
    });
}

void mfrmMain::crop_to_selection(frmImage& form) {
    if (const auto part = form.view().selection())
        process(form, [&](ImageDocument& document) { document.Crop(*part); });
}

void mfrmMain::crop_to_drawing(frmImage& form) {
    bool found = true;
    process(form, [&](ImageDocument& document) { found = document.CropToDrawing(); });
    if (!found)
        win::message_box(window(), LoadString(IDS_IMAGE_NOTHING_DARK), kApplicationTitle,
                         MB_OK | MB_ICONINFORMATION);
}

void mfrmMain::colourise(frmImage& form) {
    frmHue dialog(form.document().picture());
    dialog.show_modal(window());
    if (dialog.Cancelled) return;
    process(form, [&](ImageDocument& document) { document.Colourise(dialog.Hue); });
}

void mfrmMain::apply_palette(frmImage& form) {
    frmPalette dialog(settings_);
    dialog.show_modal(window());
    if (dialog.Cancelled) return;
    process(form, [&](ImageDocument& document) { document.ApplyPalette(dialog.FileName); });
}

void mfrmMain::reduce(frmImage& form) {
    frmSW dialog(settings_, form.document().picture());
    dialog.show_modal(window());
    if (!dialog.result) return;
    process(form, [&](ImageDocument& document) { document.Reduce(*dialog.result); });
}

} // namespace kelvane
