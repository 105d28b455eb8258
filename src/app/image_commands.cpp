#include "app/image_commands.h"

#include "app/form_operations.h"
#include "app/image_window.h"
#include "dialogs/frmCombination.h"
#include "dialogs/frmCustomFilter.h"
#include "dialogs/frmNewSize.h"
#include "dialogs/frmNoise.h"
#include "process/filter_kernel.h"
#include "texts/string_table.h"
#include "win/message_box.h"

#include "ids.h"

namespace kelvane::commands {

void emphasize(ImageDocument& document) {
    document.ProcessImage(kEmphasizeFirst);
    document.ProcessImage(kEmphasizeSecond);
}

void add_noise(MainServices& main, frmImage& form) {
    frmNoise dialog(form.document().picture());
    dialog.show_modal(main.frame());
    if (dialog.Cancelled) return;
    process(main, form,
            [&](ImageDocument& document) { document.AddNoise(dialog.Random, dialog.Percent); });
}

void custom_filter(MainServices& main, frmImage& form) {
    frmCustomFilter dialog(main.custom_filter(), form.document().picture());
    dialog.show_modal(main.frame());
    if (dialog.Cancelled) return;
    process(main, form, [&](ImageDocument& document) {
        document.LoadCustomFilter(main.custom_filter());
        document.ProcessImage(kCustom);
    });
}

void resample(MainServices& main, frmImage& form) {
    frmNewSize dialog(main.settings(), form.document().ImageWidth(), form.document().ImageHeight());
    dialog.show_modal(main.frame());
    if (dialog.Cancelled) return;
    process(main, form,
            [&](ImageDocument& document) { document.Resample(dialog.NewWidth, dialog.NewHeight); });
}

void crop_to_selection(MainServices& main, frmImage& form) {
    if (const auto part = form.view().selection())
        process(main, form, [&](ImageDocument& document) { document.Crop(*part); });
}

void crop_to_drawing(MainServices& main, frmImage& form) {
    bool found = true;
    process(main, form, [&](ImageDocument& document) { found = document.CropToDrawing(); });
    if (!found)
        win::message_box(main.frame(), LoadString(IDS_IMAGE_NOTHING_DARK), kApplicationTitle,
                         MB_OK | MB_ICONINFORMATION);
}

void mirror(ImageDocument& document) {
    document.Mirror();
}

void flip(ImageDocument& document) {
    document.Flip();
}

void rotate_right(ImageDocument& document) {
    document.RotateRight();
}

void rotate_left(ImageDocument& document) {
    document.RotateLeft();
}

void combine(MainServices& main, frmImage& active) {
    const auto source = [](frmImage& form) {
        return CombinationSource{form.document().FileTitle(), &form.document().picture()};
    };
    std::vector<CombinationSource> sources{source(active)};
    for (const auto& form : main.forms())
        if (form.get() != &active) sources.push_back(source(*form));
    frmCombination dialog(sources);
    dialog.show_modal(main.frame());
    if (dialog.Cancelled) return;

    const auto chosen = [&](std::size_t i) -> const cDIBSection& {
        return *sources[static_cast<std::size_t>(dialog.ImageSource[i])].picture;
    };
    main.new_form([&](frmImage& combined) {
        const bool done = operate(main, combined, [&](ImageDocument& document) {
            document.Combine(chosen(0), chosen(1), dialog.NewImageWidth, dialog.NewImageHeight,
                             dialog.combination);
        });
        if (done) combined.show_new();
        return done;
    });
}

} // namespace kelvane::commands
