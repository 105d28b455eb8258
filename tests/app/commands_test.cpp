// The menu: what each entry is called and what it does to the picture.
#include "app_test.h"
#include "menu_path.h"

#include "support/windows/screenshot.h"

#include "ids.h"

#include <gmock/gmock.h>

namespace kelvane::test {
namespace {

using testing::ElementsAre;

// Blue, green, red of a pixel on grey and of its right neighbour after the command.
struct Entry {
    const wchar_t* path;
    std::array<int, 6> expected;
};
const Entry kEntries[] = {
    {L"&Image|&Softening Filters|&Soften", {133, 116, 83, 108, 104, 95}},
    {L"&Image|&Softening Filters|S&often more", {127, 113, 86, 104, 102, 97}},
    {L"&Image|&Softening Filters|&Blur", {111, 105, 94, 111, 105, 94}},
    {L"&Image|&Softening Filters|Bl&ur more", {104, 102, 98, 104, 102, 98}},
    {L"&Image|S&harpening Filters|S&harpen", {255, 207, 0, 85, 92, 107}},
    {L"&Image|S&harpening Filters|S&harpen more", {255, 255, 0, 0, 50, 150}},
    {L"&Image|S&harpening Filters|&Unsharp", {255, 195, 6, 89, 95, 106}},
    {L"&Image|S&pecial Filters|&Emboss", {127, 127, 127, 127, 127, 127}},
    {L"&Image|S&pecial Filters|Mi&nimum Rank Filter", {100, 100, 50, 100, 100, 50}},
    {L"&Image|S&pecial Filters|Medi&an Rank Filter", {111, 105, 94, 111, 105, 94}},
    {L"&Image|S&pecial Filters|Ma&ximum Rank Filter", {200, 150, 100, 200, 150, 100}},
    {L"&Image|Em&phasize", {255, 255, 0, 115, 175, 255}},
    {L"&Colors|&Darken", {188, 141, 47, 94, 94, 94}},
    {L"&Colors|&Lighten", {213, 171, 87, 120, 120, 120}},
    {L"&Colors|&Negativ Image", {55, 105, 205, 155, 155, 155}},
    {L"&Colors|&Gray Scale", {131, 131, 131, 100, 100, 100}},
    {L"&Colors|&B/W (Floyd-Steinberg)", {255, 255, 255, 0, 0, 0}},
};

class Commands : public AppTest {};

TEST_F(Commands, EveryPlainEntryDoesWhatItSaysAndCanBeTakenBack) {
    cDIBSection before = flat_picture(9, 9, 100, 100, 100);
    const std::uint8_t colour[] = {200, 150, 50};
    std::copy_n(colour, 3, before.view().pixel(4, 4));
    for (const Entry& entry : kEntries) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(entry.path)));
        const frmImage& form = opened(before);
        choose(menu_command(GetMenu(main.window()), entry.path));
        const cDIBSection after = picture_of(form).Copy();
        std::array<int, 6> shown{};
        std::copy_n(after.view().pixel(4, 4), 6, shown.begin());
        EXPECT_EQ(shown, entry.expected);
        EXPECT_TRUE(form.document().Dirty());
        EXPECT_EQ(status(0).substr(0, 27), L" Complete.  Required Time =");
        choose(kCmdUndo);
        EXPECT_EQ(status(0), L" ");
        // Emphasize is two operations: the undo copy is the picture after the first, which leaves
        // it alone.
        EXPECT_TRUE(same_pixels(picture_of(form), before));
        choose(kCmdUndo);
        EXPECT_TRUE(same_pixels(picture_of(form), after));
        script.expect_message(IDNO);
        choose(kCmdClose);
    }
}

TEST_F(Commands, TurnMirrorAndCropToTheDrawing) {
    const std::pair<const wchar_t*, std::vector<std::string>> kCases[] = {
        {L"&Image|&Mirror", {"....", ".##.", "..#."}},
        {L"&Image|F&lip", {".#..", ".##.", "...."}},
        {L"&Image|Rotate Ri&ght", {"...", "##.", ".#.", "..."}},
        {L"&Image|Rotate Le&ft", {"...", ".#.", ".##", "..."}},
        {L"&Image|Crop to &Drawing", {"##", "#."}}};
    const cDIBSection before = drawn({"....", ".##.", ".#.."});
    const frmImage& form = opened(before);
    for (const auto& [path, expected] : kCases) {
        choose(menu_command(GetMenu(main.window()), path));
        EXPECT_TRUE(same_pixels(picture_of(form), drawn(expected))) << testing::PrintToString(path);
        choose(kCmdUndo);
        EXPECT_TRUE(same_pixels(picture_of(form), before));
    }
    const frmImage& white = opened(flat_picture(3, 3, 255, 255, 255), L"white.bmp");
    script.expect_message(L"Kelvane i [OK]: Nothing in the picture is dark enough to be drawn.");
    choose(kCmdCropToDrawing);
    EXPECT_FALSE(white.document().Dirty());
}

TEST_F(Commands, WithoutDocumentTheyAskForOne) {
    for (const unsigned command : {kCmdSave, kCmdExport, kCmdClose, kCmdUndo, kCmdCopy, kCmdSoften,
                                   kCmdAddNoise, kCmdCustomFilter, kCmdResample, kCmdCombine,
                                   kCmdEmphasize, kCmdColourise, kCmdApplyPalette, kCmdReduce}) {
        script.expect_message(L"Kelvane i [OK]: Please select an Image to process.");
        choose(command);
    }
}

// The access keys that occur twice in one menu, for this menu and its submenus.
std::wstring repeated_in(HMENU menu) {
    std::wstring repeated = repeated_keys(menu_texts(menu));
    for (int i = 0; i < GetMenuItemCount(menu); ++i)
        if (const HMENU opened = GetSubMenu(menu, i)) repeated += repeated_in(opened);
    return repeated;
}

TEST_F(Commands, MenuShowsCaptionsAndShortcutsInBothLanguages) {
    const HMENU bar = GetMenu(main.window());
    EXPECT_THAT(menu_texts(bar),
                ElementsAre(L"&File", L"&Edit", L"&Image", L"&Colors", L"&Window", L"&?"));
    EXPECT_THAT(menu_texts(GetSubMenu(bar, 0)),
                ElementsAre(L"&Open\tCtrl+O", L"O&pen by ImageMagick", L"&Save\tCtrl+S", L"",
                            L"&Export to EAGLE Script\tCtrl+E", L"&Import (Twain)", L"",
                            L"&Close active Image\tCtrl+F4", L"E&xit"));
    frmImage& form = opened(colourful_picture(320, 240));
    choose(kCmdNegative);
    save_screenshot(main.window(), KELVANE_SCREENSHOTS, "main-en");
    EXPECT_EQ(repeated_in(bar), L"CPHA") << "the English captions are fixed";
    script.expect_dialog([](HWND dialog) { choose_in_list(dialog, IDC_LANGUAGE, 1); });
    choose(kCmdLanguage);
    save_screenshot(main.window(), KELVANE_SCREENSHOTS, "main-de");
    EXPECT_EQ(repeated_in(bar), L"");
    EXPECT_EQ(setting(L"global", L"language"), L"0");
    EXPECT_EQ(menu_text(bar, 0), L"&Datei");
    EXPECT_EQ(menu_text(GetSubMenu(bar, 0), 0), L"Ö&ffnen\tStrg+O");
    EXPECT_EQ(win::window_text(main.window()),
              std::wstring(L"Kelvane - Bildbearbeitung für EAGLE - Version ") + KELVANE_VERSION);
    EXPECT_EQ(caption(form), L"Bild: " + path(L"picture.bmp"));
    EXPECT_EQ(menu_text(GetSubMenu(bar, 4), 5), L"&1 Bild: " + path(L"picture.bmp"));
    EXPECT_EQ(status(0).substr(0, 26), L" Fertig.  Benötigte Zeit =");
}

TEST_F(Commands, UndoIsGreyedUntilThereIsSomethingToUndo) {
    const auto greyed = [&] {
        const HMENU bar = GetMenu(main.window());
        SendMessageW(main.window(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(GetSubMenu(bar, 1)),
                     1);
        return (GetMenuState(bar, kCmdUndo, MF_BYCOMMAND) & MF_GRAYED) != 0;
    };
    EXPECT_TRUE(greyed());
    opened(flat_picture(3, 3, 1, 2, 3));
    EXPECT_TRUE(greyed());
    EXPECT_TRUE(GetMenuState(GetMenu(main.window()), kCmdCropToSelection, MF_BYCOMMAND) & MF_GRAYED)
        << "nothing is selected";
    choose(kCmdUndo); // as from a key: nothing to do
    EXPECT_EQ(pixel_at(picture_of(*main.forms()[0]), 0, 0), (std::array<int, 3>{1, 2, 3}));
    choose(kCmdDarken);
    EXPECT_FALSE(greyed());
}

TEST_F(Commands, ArrangeDocumentWindows) {
    const HWND first = opened(black_picture(300, 200)).window();
    const HWND second = opened(black_picture(300, 200), L"other.bmp").window();
    const std::tuple<unsigned, bool, bool> kCases[] = {{kCmdTileHorizontally, false, true},
                                                       {kCmdTileVertically, true, false},
                                                       {kCmdCascade, true, true}};
    for (const auto& [command, beside, below] : kCases) {
        choose(command);
        RECT one{}, other{};
        GetWindowRect(first, &one);
        GetWindowRect(second, &other);
        EXPECT_EQ(one.left != other.left, beside) << command;
        EXPECT_EQ(one.top != other.top, below) << command;
    }
}

} // namespace
} // namespace kelvane::test
