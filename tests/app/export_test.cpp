// From a picture file to the script, and the other commands with dialogs.
#include "app_test.h"

#include "dialogs/reduction_preview.h"

#include "ids.h"

namespace kelvane::test {
namespace {

using Export = AppTest;

TEST_F(Export, OutOfRangeScriptIsDeletedOnlyWhenTicked) {
    const cDIBSection picture = random_picture(4, 4, 3);
    const frmImage& form = opened(picture);
    const std::tuple<UINT, int, bool> kCases[] = {
        {BST_UNCHECKED, IDOK, true}, {BST_CHECKED, IDCANCEL, true}, {BST_CHECKED, IDOK, false}};
    for (const auto& [tick, button, stays] : kCases) {
        script.expect_dialog([](HWND dialog) { type_text(dialog, IDC_EXPORT_SIZE, L"100000"); });
        script.expect_file_dialog(path(L"far.scr"));
        if (exists(folder / "far.scr")) script.expect_message(IDYES); // overwrite
        script.expect_dialog(
            [&, check = tick](HWND dialog) {
                EXPECT_TRUE(exists(folder / "far.scr"));
                CheckDlgButton(dialog, IDC_RANGE_DELETE, check);
            },
            button);
        choose(kCmdExport);
        EXPECT_EQ(exists(folder / "far.scr"), stays);
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
    const auto expect_result = [&](unsigned command, ModalScript::Step fill) {
        script.expect_dialog(std::move(fill));
        choose(command);
        EXPECT_TRUE(same_pixels(picture_of(form), expected)) << command;
    };
    cImageProcessDIB engine;
    engine.Colourise(expected, 3.5f);
    expect_result(kCmdColourise, [](HWND dialog) { type_text(dialog, IDC_HUE_VALUE, L"3.5"); });

    expected = expected.Resample(12, 15);
    expect_result(kCmdResample, [](HWND dialog) {
        type_text(dialog, IDC_SIZE_WIDTH, L"15");
        CheckDlgButton(dialog, IDC_SIZE_KEEP_RATIO, BST_UNCHECKED);
        type_text(dialog, IDC_SIZE_HEIGHT, L"12");
    });
    EXPECT_EQ(status(2), L" 15 x 12");

    cDIBSection buffer = black_picture(15, 12);
    engine.set_FilterType(kCustom);
    engine.set_FilterArraySize(3);
    engine.set_FilterValue(1, 0, 3);
    engine.set_FilterWeight(4);
    engine.ProcessImage(expected, buffer);
    expect_result(kCmdCustomFilter, [](HWND dialog) {
        type_text(dialog, IDC_CUSTOM_CELL + 24, L"0");
        type_text(dialog, IDC_CUSTOM_CELL + 25, L"3"); // right of the centre
        type_text(dialog, IDC_CUSTOM_WEIGHT, L"4");
    });

    write_text(folder / "two.pal", "0 0 0\r\n255 255 255\r\n");
    engine.ApplyPalette(expected, buffer, cPalette({{0, 0, 0}, {255, 255, 255}}));
    expect_result(kCmdApplyPalette,
                  [&](HWND dialog) { type_text(dialog, IDC_PALETTE_FILE, path(L"two.pal")); });
    expect_result(kCmdAddNoise, [](HWND dialog) { type_text(dialog, IDC_NOISE_AMOUNT, L"0"); });
}

TEST_F(Export, ReductionDialogChoosesAmongThree) {
    const cDIBSection before = random_picture(30, 20, 8);
    const frmImage& form = opened(before);
    const struct {
        int button, slider;
        const wchar_t* key;
        Reduction reduction;
    } cases[] = {
        {IDC_REDUCE_BRIGHTNESS,
         IDC_REDUCE_BRIGHTNESS_LIMIT,
         L"bwval",
         {ReductionKind::Brightness, 77, {}}},
        {IDC_REDUCE_COLOURS,
         IDC_REDUCE_COLOUR_LIMIT,
         L"bwval2",
         {ReductionKind::Colours, 99, {false, true, true}}},
        {IDC_REDUCE_EDGES, IDC_REDUCE_EDGE_LIMIT, L"bwval3", {ReductionKind::Edges, 120, {}}},
    };
    for (const auto& [button, slider, key, reduction] : cases) {
        script.expect_dialog([&](HWND dialog) {
            click(dialog, button);
            CheckDlgButton(dialog, IDC_REDUCE_RED, BST_UNCHECKED);
            slide(dialog, slider, reduction.limit);
        });
        choose(kCmdReduce);
        cDIBSection expected = before.Copy();
        reduce_picture(expected, reduction);
        for (int x = 1; x < 30; ++x) // what edges leave in the first column is no part of them
            ASSERT_EQ(pixel_at(picture_of(form), x, 10), pixel_at(expected, x, 10))
                << button << " at " << x;
        EXPECT_EQ(setting(L"imageexport", key), std::to_wstring(reduction.limit));
        choose(kCmdUndo);
    }
    for (const auto& [key, stored] : {std::pair(L"bwr", L"0"), {L"bwg", L"1"}, {L"bbb", L"1"}})
        EXPECT_EQ(setting(L"imageexport", key), stored);
}

TEST_F(Export, CombinationIsANewDocumentAndStartsWithTheActivePicture) {
    opened(flat_picture(8, 2, 100, 50, 5), L"2.bmp"); // becomes as large as the first
    const HWND first = opened(flat_picture(4, 4, 10, 20, 30), L"1.bmp").window();
    const struct {
        int button;
        std::array<int, 3> colour;
    } cases[] = {{IDC_COMBINE_ADD, {122, 92, 67}},
                 {IDC_COMBINE_LIGHTEST, {100, 50, 5}},
                 {IDC_COMBINE_DARKEST, {10, 20, 30}}};
    for (const auto& [button, colour] : cases) {
        SendMessageW(GetParent(first), WM_MDIACTIVATE, reinterpret_cast<WPARAM>(first), 0);
        script.expect_dialog([&](HWND dialog) {
            type_text(dialog, IDC_COMBINE_MULTIPLIER_1, L"2");
            type_text(dialog, IDC_COMBINE_OFFSET_1, L"1");
            click(dialog, button);
        });
        choose(kCmdCombine);
        const auto& [blue, green, red] = colour;
        EXPECT_TRUE(
            same_pixels(picture_of(*main.forms().back()), flat_picture(4, 4, blue, green, red)));
    }
    ASSERT_EQ(main.forms().size(), 5u);
    EXPECT_EQ(caption(*main.forms()[2]), L"Image: Image 1");
    EXPECT_EQ(status(1), L" Image 3");
}

} // namespace
} // namespace kelvane::test
