// Commands of the "?" menu: help, about box, language.
#pragma once

#include "app/main_services.h"

namespace kelvane::commands {

void help(MainServices& main);
void about(MainServices& main);
void language(MainServices& main);

} // namespace kelvane::commands
