#include "dialogs/frmAbout.h"

#include "dialogs/program_face.h"
#include "texts/string_table.h"
#include "win/message_box.h"
#include "win/shell.h"

#include "ids.h"

namespace kelvane {
namespace {

constexpr Caption kCaptions[] = {
    {IDC_ABOUT_NAME, IDS_PRODUCT_NAME},
    {IDC_ABOUT_TEXT, IDS_ABOUT_TEXT},
    {IDC_ABOUT_SYSTEM_INFO, IDS_ABOUT_SYSTEM_INFO},
    {IDOK, IDS_ABOUT_OK},
};

} // namespace

frmAbout::frmAbout(std::wstring version, std::wstring system_info)
    : Form(IDD_ABOUT, IDS_ABOUT_TITLE, kCaptions), version_(std::move(version)),
      system_info_(std::move(system_info)) {}

void frmAbout::load() {
    Form::load();
    set_text(IDC_ABOUT_VERSION, LoadString(IDS_ABOUT_VERSION, {version_}));
    density_changed();
}

void frmAbout::density_changed() {
    face_ = show_program_face(window(), IDC_ABOUT_ICON, IDC_ABOUT_NAME);
}

void frmAbout::on_command(int control, int /*notification*/) {
    if (control != IDC_ABOUT_SYSTEM_INFO) return;
    if (win::shell_execute(window(), {system_info_, L"open"}) <= win::kLastShellError)
        win::message_box(window(), LoadString(IDS_ABOUT_NO_SYSTEM_INFO),
                         LoadString(IDS_ABOUT_TITLE), MB_OK | MB_ICONEXCLAMATION);
}

} // namespace kelvane
