#include "dialogs/until_input.h"

#include <windows.h>

namespace kelvane {

void UntilInput::Progress(long /*lPosition*/) {
    const bool drags = GetKeyState(VK_LBUTTON) < 0;
    const UINT kinds = QS_KEY | QS_MOUSEBUTTON | (drags ? QS_MOUSEMOVE : 0);
    if (HIWORD(GetQueueStatus(kinds)) != 0) throw Interrupted();
}

} // namespace kelvane
