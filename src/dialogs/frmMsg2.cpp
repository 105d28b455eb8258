#include "dialogs/frmMsg2.h"

#include "settings/catalogue.h"

#include "ids.h"

namespace kelvane {
namespace {

constexpr Caption kCaptions[] = {
    {IDC_SEVERAL_NOT_AGAIN, IDS_SEVERAL_NOT_AGAIN},
    {IDOK, IDS_SEVERAL_OK},
};

} // namespace

frmMsg2::frmMsg2(const SettingsFile& settings)
    : Form(IDD_SEVERAL, IDS_SEVERAL_TITLE, kCaptions), settings_(settings) {}

void frmMsg2::load() {
    Form::load();
    set_text(IDC_SEVERAL_TEXT,
             LoadString(IDS_SEVERAL_TEXT_1) + L"\n\n" + LoadString(IDS_SEVERAL_TEXT_2));
    check(IDC_SEVERAL_NOT_AGAIN, read_setting(settings_, settings::kHideSeveralImagesWarning) != 0);
    show_icon(IDC_SEVERAL_ICON, IDI_INFORMATION);
}

bool frmMsg2::confirm() {
    write_setting(settings_, settings::kHideSeveralImagesWarning,
                  checked(IDC_SEVERAL_NOT_AGAIN) ? 1 : 0);
    return true;
}

} // namespace kelvane
