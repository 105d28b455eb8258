#include "app/window_commands.h"

namespace kelvane::commands {

void tile_horizontally(MainServices& main) {
    SendMessageW(main.mdi_client(), WM_MDITILE, MDITILE_HORIZONTAL, 0);
}

void tile_vertically(MainServices& main) {
    SendMessageW(main.mdi_client(), WM_MDITILE, MDITILE_VERTICAL, 0);
}

void cascade(MainServices& main) {
    SendMessageW(main.mdi_client(), WM_MDICASCADE, 0, 0);
}

void arrange_icons(MainServices& main) {
    SendMessageW(main.mdi_client(), WM_MDIICONARRANGE, 0, 0);
}

} // namespace kelvane::commands
