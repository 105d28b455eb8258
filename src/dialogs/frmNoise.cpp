#include "dialogs/frmNoise.h"

#include "dialogs/controls.h"
#include "dialogs/field_input.h"
#include "dialogs/slider.h"

#include "ids.h"

namespace kelvane {
namespace {

constexpr Caption kCaptions[] = {
    {IDC_NOISE_AMOUNT_LABEL, IDS_NOISE_AMOUNT},
    {IDC_NOISE_RANDOM, IDS_NOISE_RANDOM},
    {IDC_NOISE_PREVIEW_LABEL, IDS_NOISE_PREVIEW},
    {IDOK, IDS_NOISE_OK},
    {IDCANCEL, IDS_NOISE_CANCEL},
};

constexpr int kMost = 100;
// Always the same grains, so that only what the user changes changes.
constexpr std::uint32_t kSeed = 1;

} // namespace

frmNoise::frmNoise(const cDIBSection& picture) : Dialog(IDD_NOISE), preview_(picture) {
    register_sliders();
}

void frmNoise::load() {
    Cancelled = true;
    set_title(LoadString(IDS_NOISE_TITLE));
    set_captions(window(), kCaptions);
    preview_.fit(control(IDC_NOISE_PREVIEW));
    set_slider_range(control(IDC_NOISE_SLIDER), kMost, 1, 10);
    set_text(IDC_NOISE_AMOUNT, std::to_wstring(Percent));
    check(IDC_NOISE_RANDOM, Random);
    follow_amount();
}

std::optional<int> frmNoise::amount() const {
    return whole_number(text(IDC_NOISE_AMOUNT), 0, kMost);
}

// An amount that is being typed and is none yet leaves slider and preview where they are.
void frmNoise::follow_amount() {
    const std::optional<int> percent = amount();
    if (!percent) return;
    set_slider_position(control(IDC_NOISE_SLIDER), *percent);
    preview_.show(control(IDC_NOISE_PREVIEW), [&](cDIBSection& picture) {
        engine_.seed_noise(kSeed);
        engine_.AddNoise(picture, *percent, checked(IDC_NOISE_RANDOM));
    });
}

void frmNoise::on_command(int control, int notification) {
    const bool typed = control == IDC_NOISE_AMOUNT && notification == EN_CHANGE;
    if (typed || control == IDC_NOISE_RANDOM) follow_amount();
}

INT_PTR frmNoise::on_message(UINT message, WPARAM /*w*/, LPARAM l) {
    switch (message) {
    case WM_HSCROLL:
        set_text(IDC_NOISE_AMOUNT, std::to_wstring(slider_position(reinterpret_cast<HWND>(l))));
        return TRUE;
    case WM_DRAWITEM:
        preview_.draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(l));
        return TRUE;
    default:
        return FALSE;
    }
}

bool frmNoise::confirm() {
    const std::optional<int> percent = amount();
    if (!percent) {
        refuse_field(window(), IDC_NOISE_AMOUNT, LoadString(IDS_NOISE_INVALID));
        return false;
    }
    Percent = *percent;
    Random = checked(IDC_NOISE_RANDOM);
    Cancelled = false;
    return true;
}

} // namespace kelvane
