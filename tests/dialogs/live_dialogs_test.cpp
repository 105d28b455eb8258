// The dialogs with a live preview: hue, noise and combination.
#include "dialogs/dialog_test.h"
#include "dialogs/frmCombination.h"
#include "dialogs/frmHue.h"
#include "dialogs/frmNoise.h"

namespace kelvane::test {
namespace {

struct LiveDialogs : DialogTest {
    const cDIBSection small = flat_picture(40, 30, 30, 30, 30);
    const cDIBSection large = flat_picture(640, 480, 100, 100, 100);
    const CombinationSource logo{L"logo.png", &small};
    const CombinationSource second{L"Image 2", &large};
};

TEST_F(LiveDialogs, HueFieldSliderAndPreviewFollowEachOther) {
    const cDIBSection grey = flat_picture(400, 300, 120, 120, 120);
    frmHue dialog(grey);
    show(dialog, IDOK, [this](HWND window) {
        EXPECT_EQ(text_of(window, IDC_HUE_VALUE), L"0.00");
        type_text(window, IDC_HUE_VALUE, L"2");
        EXPECT_EQ(position_of(window, IDC_HUE_SLIDER), 300);
        EXPECT_THAT(shown_in(window, IDC_HUE_PREVIEW), ElementsAre(RGB(60, 180, 60)));
        slide(window, IDC_HUE_SLIDER, 600);
        EXPECT_EQ(text_of(window, IDC_HUE_VALUE), L"5.00");
        EXPECT_THAT(shown_in(window, IDC_HUE_PREVIEW), ElementsAre(RGB(180, 60, 180)));
        RECT thumb{}, spectrum{};
        const HWND slider = GetDlgItem(window, IDC_HUE_SLIDER);
        SendMessageW(slider, TBM_GETTHUMBRECT, 0, reinterpret_cast<LPARAM>(&thumb));
        MapWindowPoints(slider, nullptr, reinterpret_cast<POINT*>(&thumb), 2);
        GetWindowRect(GetDlgItem(window, IDC_HUE_SPECTRUM), &spectrum);
        EXPECT_NEAR((thumb.left + thumb.right) / 2, spectrum.right - 1, 1) << "under its hue";
        for (const wchar_t* hue : {L"5.01", L"-1.01", L"nan", L"red", L""}) {
            expect_refused(window, IDC_HUE_VALUE, hue);
            EXPECT_EQ(position_of(window, IDC_HUE_SLIDER), 600);
        }
        type_text(window, IDC_HUE_VALUE, L"-0,5");
        EXPECT_EQ(position_of(window, IDC_HUE_SLIDER), 50);
    });
    EXPECT_EQ(dialog.Hue, -0.5F);
}

TEST_F(LiveDialogs, NoiseFieldSliderAndPreviewFollowEachOther) {
    const cDIBSection grey = flat_picture(30, 20, 128, 128, 128);
    frmNoise dialog(grey);
    show(dialog, IDOK, [this](HWND window) {
        EXPECT_GT(shown_in(window, IDC_NOISE_PREVIEW).size(), 2U);
        slide(window, IDC_NOISE_SLIDER, 0);
        EXPECT_EQ(text_of(window, IDC_NOISE_AMOUNT), L"0");
        EXPECT_THAT(shown_in(window, IDC_NOISE_PREVIEW), ElementsAre(RGB(128, 128, 128)));
        type_text(window, IDC_NOISE_AMOUNT, L"100");
        EXPECT_EQ(position_of(window, IDC_NOISE_SLIDER), 100);
        EXPECT_GT(shown_in(window, IDC_NOISE_PREVIEW).size(), 2U);
        click(window, IDC_NOISE_RANDOM);
        EXPECT_EQ(shown_in(window, IDC_NOISE_PREVIEW).size(), 1U) << "100 % changes almost none";
        expect_refused(window, IDC_NOISE_AMOUNT, L"101");
        expect_refused(window, IDC_NOISE_AMOUNT, L"");
        type_text(window, IDC_NOISE_AMOUNT, L"35");
    });
    EXPECT_EQ(dialog.Percent, 35);
    EXPECT_TRUE(dialog.Random);
}

TEST_F(LiveDialogs, PreviewFitsAgainAfterAChangeOfDensity) {
    frmHue dialog(large);
    show(dialog, IDCANCEL, [](HWND window) {
        const HWND box = GetDlgItem(window, IDC_HUE_PREVIEW);
        RECT before{}, after{};
        GetClientRect(box, &before);
        SetWindowPos(box, nullptr, 0, 0, 111, 111, SWP_NOMOVE | SWP_NOZORDER); // by the system
        SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(96, 96), reinterpret_cast<LPARAM>(&before));
        handle_messages();
        GetClientRect(box, &after);
        EXPECT_TRUE(EqualRect(&before, &after));
        EXPECT_EQ(position_of(window, IDC_HUE_SLIDER), 100);
    });
}

TEST_F(LiveDialogs, WeightedSumReturnsItsNumbers) {
    frmCombination dialog({logo, second, {L"copy.bmp", &small}});
    show(dialog, IDOK, [this](HWND window) {
        EXPECT_EQ(text_of(window, IDC_COMBINE_NEW_SIZE), L"New Image: 40 x 30 Pixels");
        EXPECT_TRUE(is_visible(window, IDC_COMBINE_RESAMPLED));
        EXPECT_THAT(shown_in(window, IDC_COMBINE_PREVIEW), ElementsAre(RGB(130, 130, 130)));
        choose_in_list(window, IDC_COMBINE_FIRST, 2);
        choose_in_list(window, IDC_COMBINE_SECOND, 0);
        EXPECT_FALSE(is_visible(window, IDC_COMBINE_RESAMPLED));
        choose_in_list(window, IDC_COMBINE_FIRST, 1);
        type_text(window, IDC_COMBINE_MULTIPLIER_1, L"-1");
        type_text(window, IDC_COMBINE_OFFSET_1, L"-255");
        expect_refused(window, IDC_COMBINE_MULTIPLIER_2, L"0.5");
        type_text(window, IDC_COMBINE_MULTIPLIER_2, L"2");
        EXPECT_THAT(shown_in(window, IDC_COMBINE_PREVIEW), ElementsAre(RGB(215, 215, 215)));
    });
    EXPECT_EQ(dialog.combination,
              (Combination{CombinationType::AddImages, {{{-1, -255, -255, -255}, {2, 0, 0, 0}}}}));
    EXPECT_THAT(dialog.ImageSource, ElementsAre(1, 0));
    EXPECT_EQ(dialog.NewImageWidth, 640);
    EXPECT_EQ(dialog.NewImageHeight, 480);
}

TEST_F(LiveDialogs, SelectionKeepsWhatItsNameSaysAndNeedsNoNumbers) {
    frmCombination dialog({logo, second});
    const std::tuple<int, CombinationType, COLORREF> kCases[] = {
        {IDC_COMBINE_LIGHTEST, CombinationType::AddDarkest, RGB(100, 100, 100)},
        {IDC_COMBINE_DARKEST, CombinationType::AddLightest, RGB(30, 30, 30)}};
    for (const auto& [button, type, kept] : kCases) {
        show(dialog, IDOK, [button = button, kept = kept](HWND window) {
            type_text(window, IDC_COMBINE_OFFSET_2, L"rubbish");
            click(window, button);
            EXPECT_FALSE(IsWindowEnabled(GetDlgItem(window, IDC_COMBINE_OFFSET_2)));
            EXPECT_THAT(shown_in(window, IDC_COMBINE_PREVIEW), ElementsAre(kept));
        });
        EXPECT_EQ(dialog.combination.type, type);
        EXPECT_THAT(dialog.ImageSource, ElementsAre(0, 1));
    }
}

TEST_F(LiveDialogs, OnePictureIsNotTwo) {
    frmCombination dialog({logo});
    show(dialog, IDOK, [this](HWND window) {
        expect_refused(window);
        choose_in_list(window, IDC_COMBINE_SECOND, 0);
    });
    EXPECT_THAT(script.messages(), ElementsAre(L"Please select two Images to combine."));
    EXPECT_THAT(dialog.ImageSource, ElementsAre(0, 0)) << "with itself, when asked for";
}

} // namespace
} // namespace kelvane::test
