#include "dialogs/frmMsg3.h"

#include "ids.h"

namespace kelvane {
namespace {

constexpr Caption kCaptions[] = {
    {IDC_RANGE_DELETE, IDS_RANGE_DELETE},
    {IDOK, IDS_RANGE_CLOSE},
};

} // namespace

frmMsg3::frmMsg3() : Form(IDD_RANGE, IDS_RANGE_TITLE, kCaptions) {}

void frmMsg3::load() {
    Form::load();
    DeleteScript = false;
    set_text(IDC_RANGE_TEXT, LoadString(IDS_RANGE_TEXT_1) + LoadString(IDS_RANGE_TEXT_2) +
                                 LoadString(IDS_RANGE_TEXT_3));
    show_icon(IDC_RANGE_ICON, IDI_WARNING);
}

bool frmMsg3::confirm() {
    DeleteScript = checked(IDC_RANGE_DELETE);
    return true;
}

} // namespace kelvane
