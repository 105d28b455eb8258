// Commands of the Edit menu.
#pragma once

#include "app/main_services.h"

namespace kelvane {
class ImageDocument;
}

namespace kelvane::commands {

void undo(ImageDocument& document);
void copy(MainServices& main, frmImage& form);
void paste(MainServices& main);

} // namespace kelvane::commands
