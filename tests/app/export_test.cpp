// From a picture file to the script, and the other commands with dialogs.
#include "app_test.h"

#include "ids.h"

#include <gmock/gmock.h>

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

TEST_F(Export, ScriptGoesBesideThePictureAndIsReported) {
    opened(drawn({"#.."}), L"logo.v2.bmp");
    script.expect_dialog([](HWND dialog) {
        choose_in_list(dialog, IDC_EXPORT_LAYER, 20);
        click(dialog, IDC_EXPORT_MIRROR);
    });
    script.expect_dialog([](HWND /*the name is proposed*/) {});
    choose(kCmdExport);
    ASSERT_TRUE(exists(folder / "logo.v2.scr"));
    EXPECT_THAT(file_text(folder / "logo.v2.scr"), testing::HasSubstr("Polygon 0 (2 0)"));
    EXPECT_THAT(status(0), testing::StartsWith(L" Complete.  Required Time = "));
    EXPECT_THAT(status(0), testing::EndsWith(L"  logo.v2.scr: 1 polygon on 21 tPlace"));
    create_directory(folder / "other");
    opened(drawn({"#"}), L"other\\next.bmp");
    script.expect_dialog([](HWND) {});
    script.expect_dialog([](HWND) {});
    choose(kCmdExport);
    EXPECT_TRUE(exists(folder / "next.scr")) << "beside the last script";
}

TEST_F(Export, DialogsHandTheirValuesToTheDocument) {
    const frmImage& form = opened(flat_picture(30, 20, 40, 80, 120));
    const auto answer = [&](unsigned command, ModalScript::Step fill) {
        script.expect_dialog(std::move(fill));
        choose(command);
    };
    answer(kCmdColourise, [](HWND dialog) { type_text(dialog, IDC_HUE_VALUE, L"3.5"); });
    answer(kCmdResample, [](HWND dialog) {
        type_text(dialog, IDC_SIZE_WIDTH, L"15");
        CheckDlgButton(dialog, IDC_SIZE_KEEP_RATIO, BST_UNCHECKED);
        type_text(dialog, IDC_SIZE_HEIGHT, L"12");
    });
    EXPECT_TRUE(same_pixels(picture_of(form), flat_picture(15, 12, 120, 80, 40)));
    EXPECT_EQ(status(2), L" 15 x 12");

    answer(kCmdCustomFilter, [](HWND dialog) {
        type_text(dialog, IDC_CUSTOM_CELL + 24, L"0");
        type_text(dialog, IDC_CUSTOM_CELL + 25, L"3"); // right of the centre
        type_text(dialog, IDC_CUSTOM_WEIGHT, L"4");
    });
    EXPECT_EQ(pixel_at(picture_of(form), 1, 1), (std::array<int, 3>{90, 60, 30}));
    write_text(folder / "one.pal", "10 20 30\r\n");
    answer(kCmdApplyPalette,
           [&](HWND dialog) { type_text(dialog, IDC_PALETTE_FILE, path(L"one.pal")); });
    answer(kCmdAddNoise, [](HWND dialog) { type_text(dialog, IDC_NOISE_AMOUNT, L"0"); });
    EXPECT_TRUE(same_pixels(picture_of(form), flat_picture(15, 12, 30, 20, 10)));
}

TEST_F(Export, ReductionDialogChoosesAmongThree) {
    cDIBSection before = flat_picture(5, 2, 255, 255, 255);
    const std::uint8_t top_row[] = {0, 0, 0, 255, 255, 255, 200, 20, 0, 0, 150, 255};
    std::copy_n(top_row, sizeof top_row, before.view().pixel(0, 1));
    const frmImage& form = opened(before);
    const struct {
        int button, slider, limit;
        const wchar_t *key, *stored;
        const char* top_row;
    } cases[] = {
        {IDC_REDUCE_BRIGHTNESS, IDC_REDUCE_BRIGHTNESS_LIMIT, 162, L"bwval", L"162", "#.#.."},
        {IDC_REDUCE_COLOURS, IDC_REDUCE_COLOUR_LIMIT, 109, L"bwval2", L"109", "#..#."},
        {IDC_REDUCE_EDGES, IDC_REDUCE_EDGE_LIMIT, 31, L"bwval3", L"31", "####."},
    };
    for (const auto& each : cases) {
        script.expect_dialog([&](HWND dialog) {
            click(dialog, each.button);
            CheckDlgButton(dialog, IDC_REDUCE_RED, BST_UNCHECKED);
            slide(dialog, each.slider, each.limit);
        });
        choose(kCmdReduce);
        EXPECT_TRUE(same_pixels(picture_of(form), drawn({each.top_row, "....."})));
        EXPECT_EQ(setting(L"imageexport", each.key), each.stored);
        choose(kCmdUndo);
    }
    for (const auto& [key, stored] : {std::pair(L"bwr", L"0"), {L"bwg", L"1"}, {L"bbb", L"1"}})
        EXPECT_EQ(setting(L"imageexport", key), stored);
}

// Expected: what kelvane-cli makes by "local-bw:3,5" or "bw:100", then "negative", "despeckle:1".
TEST_F(Export, ReductionsAreThoseOfTheCommandLineInOneStepAndRemembered) {
    cDIBSection before = flat_picture(5, 4, 200, 200, 200);
    for (const auto& [x, y, grey] : {std::array{1, 2, 90}, {3, 1, 180}, {3, 2, 60}, {4, 0, 250}})
        std::fill_n(before.view().pixel(x, y), 3, static_cast<std::uint8_t>(grey));
    const frmImage& form = opened(before);
    script.expect_dialog([](HWND dialog) {
        click(dialog, IDC_REDUCE_UNEVEN);
        type_text(dialog, IDC_REDUCE_SIZE, L"3");
        type_text(dialog, IDC_REDUCE_OFFSET, L"5");
    });
    choose(kCmdReduce);
    EXPECT_TRUE(same_pixels(picture_of(form), drawn({".....", ".#.#.", "...#.", "...#."})));
    choose(kCmdUndo);
    script.expect_dialog([](HWND dialog) {
        EXPECT_TRUE(IsWindowVisible(GetDlgItem(dialog, IDC_REDUCE_OFFSET)));
        click(dialog, IDC_REDUCE_BRIGHTNESS);
        type_text(dialog, IDC_REDUCE_LIMIT, L"100");
        click(dialog, IDC_REDUCE_INVERT);
        click(dialog, IDC_REDUCE_CLEAN);
        type_text(dialog, IDC_REDUCE_SPECK, L"1");
    });
    choose(kCmdReduce);
    EXPECT_TRUE(same_pixels(picture_of(form), drawn({"#####", "#####", "#####", "#####"})));
    choose(kCmdUndo);
    EXPECT_TRUE(same_pixels(picture_of(form), before)) << "one step";
    for (const auto& [key, stored] : {std::pair(L"bwkind", L"1"),
                                      {L"bwval", L"100"},
                                      {L"bwsize", L"3"},
                                      {L"bwoffset", L"5"},
                                      {L"bwinvert", L"1"},
                                      {L"bwclean", L"1"},
                                      {L"bwspeck", L"1"}})
        EXPECT_EQ(setting(L"imageexport", key), stored) << key;
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
