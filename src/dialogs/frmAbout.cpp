#include "dialogs/frmAbout.h"

#include "dialogs/controls.h"
#include "dialogs/program_face.h"
#include "settings/string_table.h"
#include "win/message_box.h"

#include "ids.h"

#include <shellapi.h>

namespace kelvane {
namespace {

constexpr Caption kCaptions[] = {
    {IDC_ABOUT_NAME, IDS_PRODUCT_NAME},
    {IDC_ABOUT_TEXT, IDS_ABOUT_TEXT},
    {IDC_ABOUT_SYSTEM_INFO, IDS_ABOUT_SYSTEM_INFO},
    {IDOK, IDS_ABOUT_OK},
};

// ShellExecute's answers above this are success.
constexpr INT_PTR kShellError = 32;

bool start(HWND owner, const std::wstring& program) {
    const HINSTANCE answer =
        ShellExecuteW(owner, L"open", program.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(answer) > kShellError;
}

} // namespace

frmAbout::frmAbout(std::wstring version, std::wstring system_info)
    : Dialog(IDD_ABOUT), version_(std::move(version)), system_info_(std::move(system_info)) {}

void frmAbout::load() {
    set_title(LoadString(IDS_ABOUT_TITLE));
    set_captions(window(), kCaptions);
    set_text(IDC_ABOUT_VERSION, LoadString(IDS_ABOUT_VERSION, {version_}));
    show_program_icon(control(IDC_ABOUT_ICON));
    large_ = use_large_font(control(IDC_ABOUT_NAME));
}

void frmAbout::on_command(int control, int /*notification*/) {
    if (control == IDC_ABOUT_SYSTEM_INFO && !start(window(), system_info_))
        win::message_box(window(), LoadString(IDS_ABOUT_NO_SYSTEM_INFO),
                         LoadString(IDS_ABOUT_TITLE), MB_OK | MB_ICONEXCLAMATION);
}

} // namespace kelvane
