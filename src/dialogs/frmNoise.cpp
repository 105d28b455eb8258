#include "dialogs/frmNoise.h"

#include "dialogs/field_input.h"
#include "dialogs/slider.h"
#include "process/tone.h"

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

// Fixed seed: the preview changes only when the user changes a setting.
constexpr std::uint32_t kSeed = 1;

} // namespace

frmNoise::frmNoise(const cDIBSection& picture)
    : SliderDialog(IDD_NOISE, IDS_NOISE_TITLE, kCaptions,
                   {IDC_NOISE_AMOUNT, IDC_NOISE_SLIDER, IDC_NOISE_PREVIEW}, picture) {}

void frmNoise::load() {
    SliderDialog::load();
    set_slider_range(control(IDC_NOISE_SLIDER), kMostNoise, 1, 10);
    set_text(IDC_NOISE_AMOUNT, text_at(Percent));
    check(IDC_NOISE_RANDOM, Random);
    start();
}

std::optional<int> frmNoise::typed_position() const {
    return whole_number(text(IDC_NOISE_AMOUNT), 0, kMostNoise);
}

std::wstring frmNoise::text_at(int position) const {
    return std::to_wstring(position);
}

void frmNoise::apply(cDIBSection& picture) {
    engine_.seed_noise(kSeed);
    engine_.AddNoise(picture, *typed_position(), checked(IDC_NOISE_RANDOM));
}

void frmNoise::on_command(int control, int notification) {
    if (control == IDC_NOISE_RANDOM) follow_field();
    SliderDialog::on_command(control, notification);
}

bool frmNoise::confirm() {
    const std::optional<int> percent = typed_position();
    if (!percent) return refuse(IDC_NOISE_AMOUNT, LoadString(IDS_NOISE_INVALID));
    Percent = *percent;
    Random = checked(IDC_NOISE_RANDOM);
    return true;
}

} // namespace kelvane
