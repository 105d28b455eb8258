// Commands of the Colors menu.
#pragma once

#include "app/main_services.h"

namespace kelvane {
class ImageDocument;
}

namespace kelvane::commands {

void darken(ImageDocument& document);
void lighten(ImageDocument& document);
void colourise(MainServices& main, frmImage& form);
void negative(ImageDocument& document);
void gray_scale(ImageDocument& document);
void floyd_steinberg(ImageDocument& document);
void apply_palette(MainServices& main, frmImage& form);
void reduce(MainServices& main, frmImage& form);

} // namespace kelvane::commands
