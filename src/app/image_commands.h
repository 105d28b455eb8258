// Commands of the Image menu: filters, noise, size, combination.
#pragma once

#include "app/image_document.h"
#include "app/main_services.h"

namespace kelvane::commands {

/// One of the predefined filters, see process/filter_kernel.h.
template <int type> void filter(ImageDocument& document) {
    document.ProcessImage(type);
}
/// Both passes of the two-pass filter.
void emphasize(ImageDocument& document);
void add_noise(MainServices& main, frmImage& form);
void custom_filter(MainServices& main, frmImage& form);
void resample(MainServices& main, frmImage& form);
/// Nothing without a selection.
void crop_to_selection(MainServices& main, frmImage& form);
/// A message when the picture holds nothing to draw.
void crop_to_drawing(MainServices& main, frmImage& form);
void mirror(ImageDocument& document);
void flip(ImageDocument& document);
void rotate_right(ImageDocument& document);
void rotate_left(ImageDocument& document);
/// The active picture is proposed as the first one.
void combine(MainServices& main, frmImage& active);

} // namespace kelvane::commands
