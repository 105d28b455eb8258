#include "dialogs/frmMsg3.h"

#include "dialogs/controls.h"

#include "ids.h"

namespace kelvane {

frmMsg3::frmMsg3() : Dialog(IDD_RANGE) {}

void frmMsg3::load() {
    DeleteScript = false;
    set_title(LoadString(IDS_RANGE_TITLE));
    set_text(IDC_RANGE_TEXT, LoadString(IDS_RANGE_TEXT_1) + LoadString(IDS_RANGE_TEXT_2) +
                                 LoadString(IDS_RANGE_TEXT_3));
    set_text(IDC_RANGE_DELETE, LoadString(IDS_RANGE_DELETE));
    set_text(IDOK, LoadString(IDS_RANGE_CLOSE));
    const HICON icon = LoadIconW(nullptr, IDI_WARNING);
    SendMessageW(control(IDC_RANGE_ICON), STM_SETICON, reinterpret_cast<WPARAM>(icon), 0);
}

bool frmMsg3::confirm() {
    DeleteScript = checked(IDC_RANGE_DELETE);
    return true;
}

} // namespace kelvane
