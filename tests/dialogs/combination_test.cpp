#include "dialogs/frmCombination.h"

#include "dialogs/shown_colours.h"
#include "dialogs/shown_dialog.h"
#include "support/pictures.h"

#include "ids.h"

#include <gmock/gmock.h>

namespace kelvane {
namespace {

using test::choose_in_list;
using test::click;
using test::ModalScript;
using test::press;
using test::shown_in;
using test::text_of;
using test::type_text;

class CombinationDialog : public testing::Test {
  protected:
    std::vector<CombinationSource> sources(std::size_t count) const {
        std::vector<CombinationSource> all{
            {L"logo.png", &small_}, {L"Image 2", &large_}, {L"copy.bmp", &small_}};
        all.resize(count);
        return all;
    }

    cDIBSection small_ = test::flat_picture(40, 30, 30, 30, 30);
    cDIBSection large_ = test::flat_picture(640, 480, 100, 100, 100);
};

TEST_F(CombinationDialog, WeightedSumReturnsItsNumbers) {
    ModalScript script;
    script.expect([&](HWND dialog) {
        EXPECT_EQ(text_of(dialog, IDC_COMBINE_NEW_SIZE), L"New Image: 40 x 30 Pixels");
        EXPECT_TRUE(IsWindowVisible(GetDlgItem(dialog, IDC_COMBINE_RESAMPLED)));
        EXPECT_THAT(shown_in(dialog, IDC_COMBINE_PREVIEW),
                    testing::ElementsAre(RGB(130, 130, 130)));
        choose_in_list(dialog, IDC_COMBINE_FIRST, 2);
        choose_in_list(dialog, IDC_COMBINE_SECOND, 0);
        EXPECT_FALSE(IsWindowVisible(GetDlgItem(dialog, IDC_COMBINE_RESAMPLED)));
        choose_in_list(dialog, IDC_COMBINE_FIRST, 1);
        type_text(dialog, IDC_COMBINE_MULTIPLIER_1, L"-1");
        type_text(dialog, IDC_COMBINE_OFFSET_1, L"-255");
        type_text(dialog, IDC_COMBINE_MULTIPLIER_2, L"0.5");
        script.expect_message(IDOK);
        press(dialog, IDOK);
        EXPECT_TRUE(IsWindowVisible(dialog)) << "half a multiplier was taken";
        type_text(dialog, IDC_COMBINE_MULTIPLIER_2, L"2");
        EXPECT_THAT(shown_in(dialog, IDC_COMBINE_PREVIEW),
                    testing::ElementsAre(RGB(215, 215, 215)));
        press(dialog, IDOK);
    });
    frmCombination dialog(sources(3));
    EXPECT_TRUE(dialog.show_modal(nullptr));
    EXPECT_FALSE(dialog.Cancelled);
    EXPECT_EQ(dialog.CombinationType, 1);
    EXPECT_THAT(dialog.ImageSource, testing::ElementsAre(1, 0));
    EXPECT_THAT(dialog.Multiplier, testing::ElementsAre(-1, 2));
    EXPECT_THAT(dialog.Offset[0], testing::Each(-255));
    EXPECT_THAT(dialog.Offset[1], testing::Each(0));
    EXPECT_EQ(dialog.NewImageWidth, 640);
    EXPECT_EQ(dialog.NewImageHeight, 480);
}

TEST_F(CombinationDialog, SelectionNeedsNoNumbers) {
    for (const int type : {2, 3}) {
        ModalScript script;
        script.expect_dialog([&](HWND dialog) {
            type_text(dialog, IDC_COMBINE_OFFSET_2, L"rubbish");
            click(dialog, IDC_COMBINE_ADD + type - 1);
            EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDC_COMBINE_OFFSET_2)));
            const COLORREF kept = type == 2 ? RGB(30, 30, 30) : RGB(100, 100, 100);
            EXPECT_THAT(shown_in(dialog, IDC_COMBINE_PREVIEW), testing::ElementsAre(kept))
                << "lightest keeps the smaller measure";
        });
        frmCombination dialog(sources(2));
        EXPECT_TRUE(dialog.show_modal(nullptr));
        EXPECT_EQ(dialog.CombinationType, type);
        EXPECT_THAT(dialog.ImageSource, testing::ElementsAre(0, 1));
    }
}

TEST_F(CombinationDialog, OnePictureIsNotTwo) {
    ModalScript script;
    script.expect([&](HWND dialog) {
        script.expect_message(IDOK);
        press(dialog, IDOK);
        choose_in_list(dialog, IDC_COMBINE_SECOND, 0);
        press(dialog, IDOK);
    });
    frmCombination dialog(sources(1));
    EXPECT_TRUE(dialog.show_modal(nullptr));
    EXPECT_THAT(script.messages(), testing::ElementsAre(L"Please select two Images to combine."));
    EXPECT_THAT(dialog.ImageSource, testing::ElementsAre(0, 0)) << "with itself, when asked for";
}

} // namespace
} // namespace kelvane
