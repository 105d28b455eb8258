// Commands of the Window menu: arrangement of the documents' windows.
#pragma once

#include "app/main_services.h"

namespace kelvane::commands {

void tile_horizontally(MainServices& main);
void tile_vertically(MainServices& main);
void cascade(MainServices& main);
void arrange_icons(MainServices& main);

} // namespace kelvane::commands
