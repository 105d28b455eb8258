// The menu: what each entry is called and what it does to the picture.
#include "app_test.h"
#include "menu_path.h"

#include "ids.h"

#include <gmock/gmock.h>

#include <functional>

namespace kelvane::test {
namespace {

using testing::ElementsAre;

// What an entry has to do, told by the engine: filter types, or one of its other operations.
struct Entry {
    const wchar_t* path;
    std::vector<int> filters;
    std::function<void(cImageProcessDIB&, cDIBSection&, cDIBSection&)> effect = {};
};
const Entry kEntries[] = {
    {L"&Image|&Softening Filters|&Soften", {3}},
    {L"&Image|&Softening Filters|S&often more", {4}},
    {L"&Image|&Softening Filters|&Blur", {1}},
    {L"&Image|&Softening Filters|Bl&ur more", {2}},
    {L"&Image|S&harpening Filters|S&harpen", {5}},
    {L"&Image|S&harpening Filters|S&harpen more", {6}},
    {L"&Image|S&harpening Filters|&Unsharp", {7}},
    {L"&Image|S&pecial Filters|&Emboss", {8}},
    {L"&Image|S&pecial Filters|Mi&nimum Rank Filter", {10}},
    {L"&Image|S&pecial Filters|Medi&an Rank Filter", {9}},
    {L"&Image|S&pecial Filters|Ma&ximum Rank Filter", {11}},
    {L"&Image|Em&phasize", {13, 14}},
    {L"&Colors|&Darken", {}, [](auto& e, auto& picture, auto&) { e.Fade(picture, 240); }},
    {L"&Colors|&Lighten", {}, [](auto& e, auto& picture, auto&) { e.Lighten(picture, 20); }},
    {L"&Colors|&Negativ Image",
     {},
     [](auto& e, auto& picture, auto&) { e.NegativeImage(picture); }},
    {L"&Colors|&Gray Scale", {}, [](auto& e, auto& picture, auto&) { e.GrayScale(picture); }},
    {L"&Colors|&B/W (Floyd-Steinberg)", {}, [](auto& e, auto& p, auto& to) { e.Steinberg(p, to); }},
};

class Commands : public AppTest {};

TEST_F(Commands, EveryPlainEntryDoesWhatItSaysAndCanBeTakenBack) {
    const cDIBSection before = random_picture(31, 17, 1);
    for (const Entry& entry : kEntries) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(entry.path)));
        const unsigned command = menu_command(GetMenu(main.window()), entry.path);
        ASSERT_NE(command, 0u);
        frmImage& form = opened(before);
        cDIBSection expected = before.Copy();
        cDIBSection buffer = black_picture(31, 17);
        cImageProcessDIB engine;
        for (const int type : entry.filters) {
            engine.set_FilterType(type);
            ASSERT_TRUE(engine.ProcessImage(expected, buffer));
        }
        if (entry.effect) entry.effect(engine, expected, buffer);

        choose(command);
        EXPECT_TRUE(same_pixels(picture_of(form), expected));
        EXPECT_TRUE(form.document().Dirty());
        EXPECT_EQ(status(0).substr(0, 27), L" Complete.  Required Time =");
        choose(kCmdUndo);
        EXPECT_EQ(status(0), L" ");
        // Emphasize is two operations: the undo copy is the picture after the first, which leaves
        // it alone.
        EXPECT_TRUE(same_pixels(picture_of(form), before));
        choose(kCmdUndo);
        EXPECT_TRUE(same_pixels(picture_of(form), expected));
        script.expect_message(IDNO);
        close(form);
    }
}

TEST_F(Commands, WithoutDocumentTheyAskForOne) {
    for (const unsigned command : {kCmdSave, kCmdExport, kCmdClose, kCmdUndo, kCmdCopy, kCmdSoften,
                                   kCmdAddNoise, kCmdCustomFilter, kCmdResample, kCmdCombine,
                                   kCmdEmphasize, kCmdColourise, kCmdApplyPalette, kCmdReduce}) {
        script.expect_message(IDOK);
        choose(command);
        ASSERT_TRUE(script.all_done()) << command;
        EXPECT_EQ(script.messages().back(), L"Please select an Image to process.");
    }
}

TEST_F(Commands, MenuShowsCaptionsAndShortcutsInBothLanguages) {
    const HMENU bar = GetMenu(main.window());
    EXPECT_THAT(menu_texts(bar),
                ElementsAre(L"&File", L"&Edit", L"&Image", L"&Colors", L"&Window", L"&?"));
    EXPECT_THAT(menu_texts(GetSubMenu(bar, 0)),
                ElementsAre(L"&Open\tCtrl+O", L"O&pen by ImageMagick", L"&Save\tCtrl+S", L"",
                            L"&Export to EAGLE Script\tCtrl+E", L"&Import (Twain)", L"",
                            L"&Close active Image\tCtrl+F4", L"E&xit"));
    frmImage& form = opened(black_picture(2, 2));
    choose(kCmdNegative);
    script.expect_dialog([](HWND dialog) { choose_in_list(dialog, IDC_LANGUAGE, 1); });
    choose(kCmdLanguage);
    EXPECT_EQ(setting(L"global", L"language"), L"0");
    EXPECT_EQ(menu_text(bar, 0), L"&Datei");
    EXPECT_EQ(menu_text(GetSubMenu(bar, 0), 0), L"Ö&ffnen\tStrg+O");
    EXPECT_EQ(win::window_text(main.window()), LoadString(IDS_TITLE) + KELVANE_VERSION);
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
