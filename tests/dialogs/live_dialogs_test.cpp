// The two dialogs with a live preview: hue and noise.
#include "dialogs/frmHue.h"
#include "dialogs/frmNoise.h"
#include "dialogs/shown_colours.h"
#include "dialogs/shown_dialog.h"
#include "dialogs/slider.h"
#include "support/pictures.h"

#include "ids.h"

#include <gmock/gmock.h>

namespace kelvane {
namespace {

using test::ModalScript;
using test::press;
using test::shown_in;
using test::text_of;
using test::type_text;

// Moves a slider as the mouse does.
void drag(HWND dialog, int slider, int position) {
    const HWND window = GetDlgItem(dialog, slider);
    set_slider_position(window, position);
    SendMessageW(dialog, WM_HSCROLL, MAKEWPARAM(TB_THUMBTRACK, position),
                 reinterpret_cast<LPARAM>(window));
}

TEST(HueDialog, FieldSliderAndPreviewFollowEachOther) {
    const cDIBSection grey = test::flat_picture(400, 300, 120, 120, 120);
    ModalScript script;
    script.expect([&](HWND dialog) {
        const HWND slider = GetDlgItem(dialog, IDC_HUE_SLIDER);
        EXPECT_EQ(text_of(dialog, IDC_HUE_VALUE), L"0.00");
        type_text(dialog, IDC_HUE_VALUE, L"2");
        EXPECT_EQ(slider_position(slider), 300);
        EXPECT_THAT(shown_in(dialog, IDC_HUE_PREVIEW), testing::ElementsAre(RGB(60, 180, 60)));
        drag(dialog, IDC_HUE_SLIDER, 600);
        EXPECT_EQ(text_of(dialog, IDC_HUE_VALUE), L"5.00");
        EXPECT_THAT(shown_in(dialog, IDC_HUE_PREVIEW), testing::ElementsAre(RGB(180, 60, 180)));
        for (const wchar_t* hue : {L"5.01", L"-1.01", L"nan", L"red", L""}) {
            type_text(dialog, IDC_HUE_VALUE, hue);
            EXPECT_EQ(slider_position(slider), 600) << testing::PrintToString(hue);
            script.expect_message(IDOK);
            press(dialog, IDOK);
            EXPECT_TRUE(IsWindowVisible(dialog)) << testing::PrintToString(hue);
        }
        type_text(dialog, IDC_HUE_VALUE, L"-0,5");
        EXPECT_EQ(slider_position(slider), 50);
        press(dialog, IDOK);
    });
    frmHue dialog(grey);
    EXPECT_TRUE(dialog.show_modal(nullptr));
    EXPECT_FALSE(dialog.Cancelled);
    EXPECT_EQ(dialog.Hue, -0.5F);
}

TEST(NoiseDialog, FieldSliderAndPreviewFollowEachOther) {
    const cDIBSection grey = test::flat_picture(30, 20, 128, 128, 128);
    ModalScript script;
    script.expect([&](HWND dialog) {
        EXPECT_GT(shown_in(dialog, IDC_NOISE_PREVIEW).size(), 2U);
        drag(dialog, IDC_NOISE_SLIDER, 0);
        EXPECT_EQ(text_of(dialog, IDC_NOISE_AMOUNT), L"0");
        EXPECT_THAT(shown_in(dialog, IDC_NOISE_PREVIEW), testing::ElementsAre(RGB(128, 128, 128)));
        type_text(dialog, IDC_NOISE_AMOUNT, L"100");
        EXPECT_EQ(slider_position(GetDlgItem(dialog, IDC_NOISE_SLIDER)), 100);
        EXPECT_GT(shown_in(dialog, IDC_NOISE_PREVIEW).size(), 2U);
        test::click(dialog, IDC_NOISE_RANDOM);
        EXPECT_EQ(shown_in(dialog, IDC_NOISE_PREVIEW).size(), 1U) << "100 % changes almost none";
        for (const wchar_t* amount : {L"101", L""}) {
            type_text(dialog, IDC_NOISE_AMOUNT, amount);
            script.expect_message(IDOK);
            press(dialog, IDOK);
            EXPECT_TRUE(IsWindowVisible(dialog)) << testing::PrintToString(amount);
        }
        type_text(dialog, IDC_NOISE_AMOUNT, L"35");
        press(dialog, IDOK);
    });
    frmNoise dialog(grey);
    EXPECT_TRUE(dialog.show_modal(nullptr));
    EXPECT_FALSE(dialog.Cancelled);
    EXPECT_EQ(dialog.Percent, 35);
    EXPECT_TRUE(dialog.Random);
}

} // namespace
} // namespace kelvane
