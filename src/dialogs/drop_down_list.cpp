#include "dialogs/drop_down_list.h"

#include <algorithm>

namespace kelvane {

void scroll_opened_list(HWND list, int first) {
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    RECT area{};
    if (!GetComboBoxInfo(list, &info) || !GetClientRect(info.hwndList, &area)) return;
    const auto entry_height = static_cast<int>(SendMessageW(list, CB_GETITEMHEIGHT, 0, 0));
    const int entries = std::max(1L, area.bottom / std::max(1, entry_height));
    const int selected = selected_entry(list);
    const int top = std::clamp(first, selected - entries + 1, selected);
    // CB_SETTOPINDEX has no effect on an opened list under Wine.
    SendMessageW(info.hwndList, LB_SETTOPINDEX, static_cast<WPARAM>(std::max(top, 0)), 0);
}

} // namespace kelvane
