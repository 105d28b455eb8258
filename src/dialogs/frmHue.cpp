#include "dialogs/frmHue.h"

#include "dialogs/controls.h"
#include "dialogs/field_input.h"
#include "dialogs/slider.h"
#include "process/hls_rgb.h"
#include "win/picture_box.h"

#include "ids.h"

#include <array>
#include <charconv>
#include <cmath>

namespace kelvane {
namespace {

constexpr Caption kCaptions[] = {
    {IDC_HUE_VALUE_LABEL, IDS_HUE_VALUE},
    {IDC_HUE_PREVIEW_LABEL, IDS_HUE_PREVIEW},
    {IDOK, IDS_HUE_OK},
    {IDCANCEL, IDS_HUE_CANCEL},
};

constexpr int kLowest = -1;
constexpr int kHighest = 5;
// The slider's positions count hundredths above the lowest hue.
constexpr int kSteps = 100;

double hue_at(int position) {
    return static_cast<double>(position) / kSteps + kLowest;
}

std::wstring hue_text(double hue) {
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.begin(), text.end(), hue, std::chars_format::fixed, 2).ptr;
    return {text.begin(), end};
}

// One row of every hue that the slider has, as bright as colours get.
cDIBSection every_hue() {
    cDIBSection strip;
    if (!strip.Create((kHighest - kLowest) * kSteps + 1, 1)) return strip;
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
    : Dialog(IDD_HUE), preview_(picture), spectrum_(every_hue()) {
    register_sliders();
}

void frmHue::load() {
    Cancelled = true;
    set_title(LoadString(IDS_HUE_TITLE));
    set_captions(window(), kCaptions);
    set_slider_range(control(IDC_HUE_SLIDER), (kHighest - kLowest) * kSteps, 5, kSteps);
    preview_.fit(control(IDC_HUE_PREVIEW));
    place_spectrum();
    set_text(IDC_HUE_VALUE, hue_text(static_cast<double>(Hue)));
    follow_hue();
}

// Puts the strip of hues exactly over the way of the slider's thumb.
void frmHue::place_spectrum() const {
    const HWND slider = control(IDC_HUE_SLIDER);
    const LONG left = thumb_middle(slider, 0);
    const LONG right = thumb_middle(slider, (kHighest - kLowest) * kSteps);
    const HWND strip = control(IDC_HUE_SPECTRUM);
    RECT area{};
    GetWindowRect(strip, &area);
    MapWindowPoints(nullptr, window(), reinterpret_cast<POINT*>(&area), 2);
    SetWindowPos(strip, nullptr, left, area.top, right - left + 1, area.bottom - area.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

std::optional<double> frmHue::hue() const {
    const std::optional<double> value = decimal_number(text(IDC_HUE_VALUE));
    return value && *value >= kLowest && *value <= kHighest ? value : std::nullopt;
}

// A hue that is being typed and is none yet leaves slider and preview where they are.
void frmHue::follow_hue() {
    const std::optional<double> value = hue();
    if (!value) return;
    set_slider_position(control(IDC_HUE_SLIDER),
                        static_cast<int>(std::lround((*value - kLowest) * kSteps)));
    preview_.show(control(IDC_HUE_PREVIEW), [&](cDIBSection& picture) {
        engine_.Colourise(picture, static_cast<float>(*value));
    });
}

void frmHue::on_command(int control, int notification) {
    if (control == IDC_HUE_VALUE && notification == EN_CHANGE) follow_hue();
}

INT_PTR frmHue::on_message(UINT message, WPARAM w, LPARAM l) {
    switch (message) {
    case WM_HSCROLL:
        set_text(IDC_HUE_VALUE, hue_text(hue_at(slider_position(reinterpret_cast<HWND>(l)))));
        return TRUE;
    case WM_DRAWITEM: {
        const auto& box = *reinterpret_cast<const DRAWITEMSTRUCT*>(l);
        if (w == IDC_HUE_SPECTRUM)
            win::draw_picture(box.hDC, box.rcItem, spectrum_);
        else
            preview_.draw(box);
        return TRUE;
    }
    default:
        return FALSE;
    }
}

bool frmHue::confirm() {
    const std::optional<double> value = hue();
    if (!value) {
        refuse_field(window(), IDC_HUE_VALUE, LoadString(IDS_HUE_INVALID));
        return false;
    }
    Hue = static_cast<float>(*value);
    Cancelled = false;
    return true;
}

} // namespace kelvane
