#include "dialogs/frmSplash.h"

#include "dialogs/program_face.h"
#include "texts/string_table.h"

#include "ids.h"

namespace kelvane {
namespace {

constexpr Caption kCaptions[] = {
    {IDC_SPLASH_NAME, IDS_PRODUCT_NAME},
    {IDC_SPLASH_PURPOSE, IDS_PRODUCT_PURPOSE},
    {IDC_SPLASH_LOADING, IDS_SPLASH_LOADING},
};

constexpr UINT_PTR kTimer = 1;

} // namespace

frmSplash::frmSplash(std::wstring version)
    : Form(IDD_SPLASH, IDS_PRODUCT_NAME, kCaptions), version_(std::move(version)) {}

void frmSplash::load() {
    Form::load();
    set_text(IDC_SPLASH_VERSION, LoadString(IDS_ABOUT_VERSION, {version_}));
    density_changed();
    SetTimer(window(), kTimer, kStay, nullptr);
}

void frmSplash::density_changed() {
    face_ = show_program_face(window(), IDC_SPLASH_ICON, IDC_SPLASH_NAME);
}

INT_PTR frmSplash::on_message(UINT message, WPARAM /*w*/, LPARAM /*l*/) {
    switch (message) {
    case WM_TIMER:
    case WM_LBUTTONDOWN:
        close();
        return TRUE;
    case WM_CTLCOLORDLG:
    case WM_CTLCOLORSTATIC:
        return reinterpret_cast<INT_PTR>(GetStockObject(WHITE_BRUSH));
    default:
        return FALSE;
    }
}

} // namespace kelvane
