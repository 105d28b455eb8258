// Commands of the File menu.
#pragma once

#include "app/main_services.h"

namespace kelvane::commands {

void open(MainServices& main);
void open_by_imagemagick(MainServices& main);
void save(MainServices& main, frmImage& form);
void export_script(MainServices& main, frmImage& form);
void select_source(MainServices& main);
void acquire(MainServices& main);
void close(MainServices& main, frmImage& form);
void exit(MainServices& main);

} // namespace kelvane::commands
