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
/// The active picture is proposed as the first one.
void combine(MainServices& main, frmImage& active);

} // namespace kelvane::commands
