#include "dialogs/frmHue.h"

#include "dialogs/field_input.h"
#include "dialogs/slider.h"
#include "process/hls_rgb.h"
#include "process/tone.h"
#include "win/picture_box.h"

#include "ids.h"

#include <array>
#include <charconv>
#include <cmath>

namespace kelvane {
namespace {

constexpr Caption kCaptions[] = {
    {IDC_HUE_VALUE_LABEL, IDS_HUE_VALUE},
    {IDC_HUE_MEANING, IDS_HUE_MEANING},
    {IDC_HUE_PREVIEW_LABEL, IDS_HUE_PREVIEW},
    {IDOK, IDS_HUE_OK},
    {IDCANCEL, IDS_HUE_CANCEL},
};

// The slider's positions count hundredths above the lowest hue.
constexpr int kSteps = 100;

double hue_at(int position) {
    return static_cast<double>(position) / kSteps + kLowestHue;
}

int position_of(double hue) {
    return static_cast<int>(std::lround((hue - kLowestHue) * kSteps));
}

// One row with a pixel for each slider position, in its hue at full saturation.
cDIBSection every_hue() {
    cDIBSection strip;
    if (!strip.Create((kHighestHue - kLowestHue) * kSteps + 1, 1)) return strip;
    const ImageView view = strip.view();
    for (int x = 0; x < view.width; ++x) {
        const auto colour = mHLSRGB::HLSToRGB({static_cast<float>(hue_at(x)), 0.5F, 1});
        view.pixel(x, 0)[0] = static_cast<std::uint8_t>(colour.b);
        view.pixel(x, 0)[1] = static_cast<std::uint8_t>(colour.g);
        view.pixel(x, 0)[2] = static_cast<std::uint8_t>(colour.r);
    }
    return strip;
}

// Middle of a slider's thumb in its dialog's coordinates when the slider is at `position`.
LONG thumb_middle(HWND slider, int position) {
    RECT thumb{};
    set_slider_position(slider, position);
    SendMessageW(slider, TBM_GETTHUMBRECT, 0, reinterpret_cast<LPARAM>(&thumb));
    POINT middle{(thumb.left + thumb.right) / 2, 0};
    MapWindowPoints(slider, GetParent(slider), &middle, 1);
    return middle.x;
}

} // namespace

frmHue::frmHue(const cDIBSection& picture)
    : SliderDialog(IDD_HUE, IDS_HUE_TITLE, kCaptions,
                   {IDC_HUE_VALUE, IDC_HUE_SLIDER, IDC_HUE_PREVIEW}, picture),
      spectrum_(every_hue()) {}

void frmHue::load() {
    SliderDialog::load();
    set_slider_range(control(IDC_HUE_SLIDER), (kHighestHue - kLowestHue) * kSteps, 5, kSteps);
    set_text(IDC_HUE_VALUE, text_at(position_of(static_cast<double>(Hue))));
    start();
}

void frmHue::density_changed() {
    SliderDialog::density_changed();
    place_spectrum();
}

// Aligns the strip of hues with the range of the slider's thumb.
void frmHue::place_spectrum() const {
    const HWND slider = control(IDC_HUE_SLIDER);
    const int position = slider_position(slider);
    const LONG left = thumb_middle(slider, 0);
    const LONG right = thumb_middle(slider, (kHighestHue - kLowestHue) * kSteps);
    set_slider_position(slider, position);
    const HWND strip = control(IDC_HUE_SPECTRUM);
    RECT area{};
    GetWindowRect(strip, &area);
    MapWindowPoints(nullptr, window(), reinterpret_cast<POINT*>(&area), 2);
    SetWindowPos(strip, nullptr, left, area.top, right - left + 1, area.bottom - area.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

std::optional<double> frmHue::hue() const {
    const std::optional<double> value = decimal_number(text(IDC_HUE_VALUE));
    return value && *value >= kLowestHue && *value <= kHighestHue ? value : std::nullopt;
}

std::optional<int> frmHue::typed_position() const {
    const std::optional<double> value = hue();
    return value ? std::optional(position_of(*value)) : std::nullopt;
}

std::wstring frmHue::text_at(int position) const {
    std::array<char, 32> text{};
    const auto end =
        std::to_chars(text.begin(), text.end(), hue_at(position), std::chars_format::fixed, 2).ptr;
    return {text.begin(), end};
}

void frmHue::apply(cDIBSection& picture) {
    engine_.Colourise(picture, static_cast<float>(*hue()));
}

void frmHue::draw(const DRAWITEMSTRUCT& box) {
    if (box.CtlID != IDC_HUE_SPECTRUM) return SliderDialog::draw(box);
    win::draw_picture(box.hDC, box.rcItem, spectrum_);
}

bool frmHue::confirm() {
    const std::optional<double> value = hue();
    if (!value) return refuse(IDC_HUE_VALUE, LoadString(IDS_HUE_INVALID));
    Hue = static_cast<float>(*value);
    return true;
}

} // namespace kelvane
