// From a picture file to the script, and the other commands with dialogs.
#include "app_test.h"

#include "ids.h"

#include <commctrl.h>

namespace kelvane::test {
namespace {

class Export : public AppTest {
  protected:
    static void choose_button(HWND dialog, int button) {
        SendDlgItemMessageW(dialog, button, BM_CLICK, 0, 0);
    }
    void expect_export(ModalScript::Step fill, const wchar_t* script_name) {
        script.expect_dialog(std::move(fill));
        script.expect_file_dialog(path(script_name));
    }
};

TEST_F(Export, OutOfRangeScriptIsDeletedOnlyWhenTicked) {
    const cDIBSection picture = random_picture(4, 4, 3);
    const frmImage& form = opened(picture);
    for (const bool tick : {false, true}) {
        expect_export([](HWND dialog) { type_text(dialog, IDC_EXPORT_SIZE, L"100000"); },
                      L"far.scr");
        if (tick) script.expect_message(IDYES); // overwrite
        script.expect_dialog([&](HWND dialog) {
            EXPECT_TRUE(exists(folder / "far.scr"));
            CheckDlgButton(dialog, IDC_RANGE_DELETE, tick ? BST_CHECKED : BST_UNCHECKED);
        });
        choose(kCmdExport);
        EXPECT_EQ(exists(folder / "far.scr"), !tick);
        EXPECT_TRUE(same_pixels(picture_of(form), picture)); // not the reduced one
    }
}

TEST_F(Export, CancelledDialogsChangeNothing) {
    const cDIBSection before = random_picture(9, 9, 4);
    frmImage& form = opened(before);
    for (const unsigned command :
         {kCmdExport, kCmdAddNoise, kCmdCustomFilter, kCmdResample, kCmdCombine, kCmdColourise,
          kCmdApplyPalette, kCmdReduce, kCmdAbout, kCmdLanguage}) {
        script.expect_dialog([](HWND) {}, IDCANCEL);
        choose(command);
        ASSERT_TRUE(script.all_done()) << command;
    }
    EXPECT_TRUE(same_pixels(picture_of(form), before));
    EXPECT_FALSE(form.document().Dirty() || form.document().undoEnable());
    EXPECT_EQ(main.forms().size(), 1u);
    EXPECT_FALSE(exists(folder / "kelvane.ini"));
}

TEST_F(Export, DialogsHandTheirValuesToTheDocument) {
    cDIBSection expected = random_picture(30, 20, 6);
    const frmImage& form = opened(expected);
    const auto run = [&](unsigned command, ModalScript::Step fill) {
        script.expect_dialog(std::move(fill));
        choose(command);
    };
    cImageProcessDIB engine;
    run(kCmdColourise, [](HWND dialog) { type_text(dialog, IDC_HUE_VALUE, L"3.5"); });
    engine.Colourise(expected, 3.5f);
    EXPECT_TRUE(same_pixels(picture_of(form), expected));

    run(kCmdResample, [](HWND dialog) {
        type_text(dialog, IDC_SIZE_WIDTH, L"15");
        CheckDlgButton(dialog, IDC_SIZE_KEEP_RATIO, BST_UNCHECKED);
        type_text(dialog, IDC_SIZE_HEIGHT, L"12");
    });
    expected = expected.Resample(12, 15);
    EXPECT_TRUE(same_pixels(picture_of(form), expected));
    EXPECT_EQ(status(2), L" 15 x 12");

    run(kCmdCustomFilter, [](HWND dialog) {
        type_text(dialog, IDC_CUSTOM_CELL + 25, L"3"); // right of the centre
        type_text(dialog, IDC_CUSTOM_CELL + 24, L"1");
        type_text(dialog, IDC_CUSTOM_WEIGHT, L"4");
    });
    engine.set_FilterType(kCustom);
    engine.set_FilterArraySize(3);
    engine.set_FilterValue(0, 0, 1);
    engine.set_FilterValue(1, 0, 3);
    engine.set_FilterWeight(4);
    cDIBSection buffer = black_picture(15, 12);
    engine.ProcessImage(expected, buffer);
    EXPECT_TRUE(same_pixels(picture_of(form), expected));

    write_text(folder / "two.pal", "0 0 0\r\n255 255 255\r\n");
    run(kCmdApplyPalette,
        [&](HWND dialog) { type_text(dialog, IDC_PALETTE_FILE, path(L"two.pal")); });
    engine.ApplyPalette(expected, buffer, cPalette({{0, 0, 0}, {255, 255, 255}}));
    EXPECT_TRUE(same_pixels(picture_of(form), expected));

    run(kCmdAddNoise, [](HWND dialog) { type_text(dialog, IDC_NOISE_AMOUNT, L"0"); });
    EXPECT_TRUE(same_pixels(picture_of(form), expected));
}

TEST_F(Export, ReductionDialogChoosesAmongThree) {
    opened(random_picture(30, 20, 8));
    const struct {
        int button, slider, limit;
        const wchar_t* key;
    } cases[] = {
        {IDC_REDUCE_BRIGHTNESS, IDC_REDUCE_BRIGHTNESS_LIMIT, 77, L"bwval"},
        {IDC_REDUCE_COLOURS, IDC_REDUCE_COLOUR_LIMIT, 99, L"bwval2"},
        {IDC_REDUCE_EDGES, IDC_REDUCE_EDGE_LIMIT, 120, L"bwval3"},
    };
    for (const auto& entry : cases) {
        script.expect_dialog([&entry](HWND dialog) {
            choose_button(dialog, entry.button);
            CheckDlgButton(dialog, IDC_REDUCE_GREEN, BST_CHECKED);
            SendDlgItemMessageW(dialog, entry.slider, TBM_SETPOS, TRUE, entry.limit);
            SendMessageW(dialog, WM_HSCROLL, TB_THUMBTRACK,
                         reinterpret_cast<LPARAM>(GetDlgItem(dialog, entry.slider)));
        });
        choose(kCmdReduce);
        EXPECT_EQ(setting(L"imageexport", entry.key), std::to_wstring(entry.limit));
    }
    EXPECT_EQ(setting(L"imageexport", L"bwr") + setting(L"imageexport", L"bwg"), L"01");
}

TEST_F(Export, CombinationIsANewDocument) {
    opened(flat_picture(4, 3, 10, 20, 30), L"1.bmp");
    opened(flat_picture(4, 3, 1, 2, 3), L"2.bmp");
    script.expect_dialog([](HWND dialog) { // by default the plain sum of the first two
        type_text(dialog, IDC_COMBINE_MULTIPLIER_2, L"2");
    });
    choose(kCmdCombine);
    ASSERT_EQ(main.forms().size(), 3u);
    EXPECT_TRUE(same_pixels(picture_of(*main.forms()[2]), flat_picture(4, 3, 12, 24, 36)));
    EXPECT_EQ(caption(*main.forms()[2]), L"Image: Image 1");
    EXPECT_EQ(status(1), L" Image 1");
}

} // namespace
} // namespace kelvane::test
