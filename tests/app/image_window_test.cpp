// What the document's window shows, how it scrolls, and what happens during an operation.
#include "app_test.h"

#include "support/windows/screenshot.h"

#include "ids.h"

#include <commctrl.h>
#include <gmock/gmock.h>

#include <functional>
#include <set>

namespace kelvane::test {
namespace {

class ImageWindow : public AppTest {
  protected:
    static void resize(const frmImage& form, int width, int height) {
        SetWindowPos(form.window(), nullptr, 0, 0, width, height, SWP_NOZORDER);
    }
    static bool has_bar(const frmImage& form, LONG style) {
        return (GetWindowLongW(form.window(), GWL_STYLE) & style) != 0;
    }
    static int position(const frmImage& form, int bar) { return GetScrollPos(form.window(), bar); }
    // Blue, green, red of a pixel on the screen.
    static std::array<int, 3> shown(const frmImage& form, int x, int y) {
        UpdateWindow(form.window());
        const win::WindowContext context(form.window());
        const COLORREF colour = GetPixel(context.get(), x, y);
        return {GetBValue(colour), GetGValue(colour), GetRValue(colour)};
    }
    static std::array<int, 3> in_picture(const frmImage& form, int x, int y_from_top) {
        return pixel_at(picture_of(form), x, form.document().ImageHeight() - 1 - y_from_top);
    }
    static void while_down(const std::vector<int>& keys, const std::function<void()>& action) {
        BYTE before[256], now[256];
        GetKeyboardState(before);
        std::copy(std::begin(before), std::end(before), now);
        for (const int key : keys)
            now[key] = 0x80;
        SetKeyboardState(now);
        action();
        SetKeyboardState(before);
    }
    static void press_keys(const frmImage& form, const std::vector<WPARAM>& keys,
                           const std::vector<int>& held = {}) {
        while_down(held, [&] {
            for (const WPARAM key : keys)
                SendMessageW(form.window(), WM_KEYDOWN, key, 0);
        });
    }
    static void mouse(const frmImage& form, UINT message, int x, int y) {
        SendMessageW(form.window(), message, 0, MAKELPARAM(x, y));
    }
    static void drag(const frmImage& form, POINT from, POINT to, UINT down = WM_LBUTTONDOWN) {
        mouse(form, down, from.x, from.y);
        mouse(form, WM_MOUSEMOVE, to.x, to.y);
        mouse(form, down + 1, to.x, to.y);
    }
    static void zoom_by_wheel(const frmImage& form, int delta, POINT at) {
        ClientToScreen(form.window(), &at);
        SendMessageW(form.window(), WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, static_cast<WORD>(delta)),
                     MAKELPARAM(at.x, at.y));
    }
};

TEST_F(ImageWindow, ShowsThePictureOneToOneWhereItIsScrolledTo) {
    frmImage& form = opened(random_picture(1000, 700, 9));
    resize(form, 300, 200);
    for (const auto& [x, y] : {std::pair{0, 0}, {5, 3}, {100, 80}})
        EXPECT_EQ(shown(form, x, y), in_picture(form, x, y));
    const HWND window = form.window();
    SendMessageW(window, WM_KEYDOWN, VK_RIGHT, 0);
    SendMessageW(window, WM_VSCROLL, SB_PAGEDOWN, 0);
    RECT client{};
    GetClientRect(window, &client);
    int left = 16, top = client.bottom;
    // A notch is three lines of 16 pixels; finer wheels send parts of it, which add up.
    for (const auto& [delta, pixels] :
         {std::pair{-120, 48}, {-1, 0}, {-1, 0}, {-3, 2}, {60, -24}}) {
        SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(delta)), 0);
        top += pixels;
        EXPECT_EQ(position(form, SB_VERT), top) << delta;
    }
    SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(MK_SHIFT, static_cast<WORD>(-120)), 0);
    SendMessageW(window, WM_MOUSEHWHEEL, MAKEWPARAM(0, 40), 0);
    left += 48 + 16;
    EXPECT_EQ(position(form, SB_HORZ), left);
    EXPECT_EQ(shown(form, 20, 10), in_picture(form, left + 20, top + 10));

    SendMessageW(window, WM_KEYDOWN, VK_END, 0);
    EXPECT_EQ(position(form, SB_HORZ), 1000 - client.right);
    EXPECT_EQ(position(form, SB_VERT), 700 - client.bottom);
    EXPECT_EQ(shown(form, client.right - 1, client.bottom - 1), in_picture(form, 999, 699));
    choose(kCmdNegative);
    EXPECT_EQ(shown(form, client.right - 1, client.bottom - 1), in_picture(form, 999, 699));
}

TEST_F(ImageWindow, MainWindowGoesWhereAMonitorOfAnotherDensityWantsIt) {
    RECT wanted{40, 50, 840, 650}, place{}, inside{}, bar{};
    SendMessageW(main.window(), WM_DPICHANGED, MAKEWPARAM(144, 144),
                 reinterpret_cast<LPARAM>(&wanted));
    GetWindowRect(main.window(), &place);
    EXPECT_TRUE(EqualRect(&place, &wanted));
    GetClientRect(main.window(), &inside);
    GetClientRect(main.status_bar().window(), &bar);
    EXPECT_EQ(bar.right, inside.right);
    MoveWindow(main.window(), 0, 0, 600, 400, TRUE);
    SendMessageW(main.status_bar().window(), SB_GETRECT, 0, reinterpret_cast<LPARAM>(&bar));
    EXPECT_GT(bar.right, 200) << "no room for the message";
}

TEST_F(ImageWindow, ProgressBarStartsAnew) {
    StatusBar bar;
    bar.create(main.window());
    bar.ProgressMax(9);
    bar.ProgressValue(7);
    EXPECT_EQ(SendMessageW(bar.progress(), PBM_GETPOS, 0, 0), 7);
    bar.ProgressMax(9);
    EXPECT_EQ(SendMessageW(bar.progress(), PBM_GETPOS, 0, 0), 0);
}

TEST_F(ImageWindow, FitsItsPictureWithBothBarsAndItsTitle) {
    const frmImage& wide = opened(black_picture(3000, 100));
    EXPECT_TRUE(has_bar(wide, WS_HSCROLL) && !has_bar(wide, WS_VSCROLL));
    const frmImage& high = opened(black_picture(900, 2000));
    EXPECT_TRUE(!has_bar(high, WS_HSCROLL) && has_bar(high, WS_VSCROLL));
    RECT tiny{};
    GetClientRect(opened(black_picture(2, 2), std::wstring(60, L'W') + L".bmp").window(), &tiny);
    EXPECT_GT(tiny.right, 60 * 7);
}

TEST_F(ImageWindow, BarsShowOnlyWhatDoesNotFit) {
    frmImage& form = opened(black_picture(900, 200)); // wider than its title
    EXPECT_FALSE(has_bar(form, WS_HSCROLL) || has_bar(form, WS_VSCROLL)) << "sized to the picture";
    RECT window{};
    GetWindowRect(form.window(), &window);
    const int width = window.right - window.left;
    const int height = window.bottom - window.top;
    resize(form, width - 5, height + 60);
    EXPECT_TRUE(has_bar(form, WS_HSCROLL) && !has_bar(form, WS_VSCROLL));
    resize(form, width - 5, height); // the horizontal bar covers the last rows
    EXPECT_TRUE(has_bar(form, WS_HSCROLL) && has_bar(form, WS_VSCROLL));
    SendMessageW(form.window(), WM_KEYDOWN, VK_END, 0);
    resize(form, width, height);
    EXPECT_FALSE(has_bar(form, WS_HSCROLL) || has_bar(form, WS_VSCROLL));
    EXPECT_EQ(position(form, SB_HORZ), 0);
    EXPECT_EQ(shown(form, 899, 199), (std::array<int, 3>{0, 0, 0}));
}

TEST_F(ImageWindow, ZoomsByWheelAndKeys) {
    const frmImage& form = opened(random_picture(600, 400, 7));
    resize(form, 300, 200);
    EXPECT_EQ(status(4), L" 100 %");
    SendMessageW(form.window(), WM_KEYDOWN, VK_RIGHT, 0);
    const auto under_cursor = in_picture(form, 16 + 100, 50);
    for (const wchar_t* shown_zoom : {L" 150 %", L" 200 %", L" 300 %"}) {
        zoom_by_wheel(form, 60, {100, 50});
        zoom_by_wheel(form, 60, {100, 50});
        EXPECT_EQ(status(4), shown_zoom);
        EXPECT_EQ(shown(form, 100, 50), under_cursor);
    }
    const int left = position(form, SB_HORZ), top = position(form, SB_VERT);
    for (const auto& [x, y] : {std::pair{0, 0}, {1, 7}, {50, 99}})
        EXPECT_EQ(shown(form, x, y), in_picture(form, (left + x) / 3, (top + y) / 3));
    press_keys(form, {VK_OEM_PLUS, VK_ADD, VK_OEM_MINUS, VK_SUBTRACT, VK_SUBTRACT}, {VK_CONTROL});
    EXPECT_EQ(status(4), L" 200 %");
    press_keys(form, {'9'}, {VK_CONTROL});
    EXPECT_FALSE(has_bar(form, WS_HSCROLL) || has_bar(form, WS_VSCROLL));
    press_keys(form, {'0'}, {VK_CONTROL});
    EXPECT_EQ(status(4), L" 100 %");
    EXPECT_EQ(shown(form, 7, 5),
              in_picture(form, position(form, SB_HORZ) + 7, position(form, SB_VERT) + 5));
    const frmImage& chessboard =
        opened(drawn({"#.#.#.#.", ".#.#.#.#", "#.#.#.#.", ".#.#.#.#"}), L"b.bmp");
    for (int i = 0; i < 3; ++i)
        zoom_by_wheel(chessboard, -120, {0, 0});
    EXPECT_EQ(status(4), L" 50 %");
    EXPECT_EQ(shown(chessboard, 2, 1), (std::array<int, 3>{128, 128, 128})) << "an average";
    choose(kCmdDarken);
    EXPECT_EQ(shown(chessboard, 2, 1), (std::array<int, 3>{120, 120, 120})) << "drawn anew";
    SendMessageW(main.window(), WM_COMMAND, kFirstChildId, 0);
    EXPECT_EQ(status(4), L" 100 %") << "of the picture in front";
}

TEST_F(ImageWindow, SelectsByMouseCopiesAndCrops) {
    frmImage& form = opened(colourful_picture(600, 400));
    resize(form, 300, 200);
    zoom_by_wheel(form, 120, {0, 0});
    zoom_by_wheel(form, 120, {0, 0}); // 200 %
    drag(form, {21, 11}, {60, 41});
    EXPECT_EQ(form.view().selection(), (PixelRect{10, 5, 21, 16}));
    std::set<std::array<int, 3>> frame;
    for (int x = 19; x <= 62; ++x)
        frame.insert(shown(form, x, 9));
    EXPECT_THAT(frame, testing::ElementsAre(std::array{0, 0, 0}, std::array{255, 255, 255}));
    const cDIBSection part = [&] {
        cDIBSection copy = black_picture(21, 16);
        Crop(picture_of(form).view(), {10, 5, 21, 16}, copy.view());
        return copy;
    }();
    save_screenshot(main.window(), KELVANE_SCREENSHOTS, "selection-en");
    choose(kCmdCopy);
    choose(kCmdPaste);
    EXPECT_TRUE(same_pixels(picture_of(*main.forms()[1]), part));
    close(*main.forms()[1]);
    choose(kCmdCropToSelection);
    EXPECT_TRUE(same_pixels(picture_of(form), part));
    EXPECT_EQ(status(2), L" 21 x 16");
    EXPECT_EQ(form.view().selection(), std::nullopt) << "of a picture that is no longer there";
    choose(kCmdUndo);
    EXPECT_EQ(status(2), L" 600 x 400");

    drag(form, {0, 0}, {150, 100});
    EXPECT_TRUE(form.view().selection());
    press_keys(form, {VK_ESCAPE});
    EXPECT_EQ(form.view().selection(), std::nullopt);
    drag(form, {100, 50}, {60, 40}, WM_MBUTTONDOWN);
    EXPECT_EQ(std::pair(position(form, SB_HORZ), position(form, SB_VERT)), std::pair(40, 10));
    while_down({VK_SPACE}, [&] { drag(form, {60, 40}, {50, 40}); });
    EXPECT_EQ(position(form, SB_HORZ), 50);
    EXPECT_EQ(form.view().selection(), std::nullopt);
    drag(form, {0, 0}, {1000, -50}); // beyond the window it scrolls
    EXPECT_EQ(position(form, SB_VERT), 0);
    EXPECT_EQ(form.view().selection()->left, 25);
    EXPECT_GT(form.view().selection()->width, 400);
    drag(form, {70, 70}, {71, 71});
    EXPECT_EQ(form.view().selection(), std::nullopt) << "a click";
    const frmImage& small = opened(black_picture(20, 10), L"smaller than its window.bmp");
    drag(small, {50, 9}, {15, 5});
    EXPECT_EQ(small.view().selection(), (PixelRect{15, 5, 5, 5}));
    drag(small, {50, 2}, {80, 8});
    EXPECT_EQ(small.view().selection(), std::nullopt) << "beside the picture";
}

TEST_F(ImageWindow, SelectsByKeysAndTellsThePixel) {
    const frmImage& form = opened(flat_picture(300, 200, 10, 128, 200));
    EXPECT_EQ(form.view().tip_text(), L"");
    mouse(form, WM_MOUSEHOVER, 12, 34);
    EXPECT_EQ(form.view().tip_text(),
              L"Pixel 12, 34\nRed 200, Green 128, Blue 10\nWhite in the export");
    RECT tip{};
    MoveWindow(main.window(), GetSystemMetrics(SM_CXSCREEN) - 60, 0, 600, 400, TRUE);
    mouse(form, WM_MOUSEMOVE, 40, 34);
    GetWindowRect(FindWindowW(TOOLTIPS_CLASSW, nullptr), &tip);
    POINT cursor{40, 34};
    ClientToScreen(form.window(), &cursor);
    EXPECT_LT(tip.right, cursor.x) << "over the end of the screen, or under the cursor";
    press_keys(form, {VK_RIGHT, VK_DOWN}, {VK_SHIFT});
    press_keys(form, {VK_RIGHT}, {VK_SHIFT, VK_CONTROL});
    press_keys(form, {VK_DOWN, VK_DOWN, VK_RIGHT, VK_UP}, {VK_CONTROL});
    EXPECT_EQ(form.view().selection(), (PixelRect{1, 1, 12, 2}));
    for (const UINT message : {WM_SYSKEYDOWN, WM_KILLFOCUS}) { // Alt+I, Alt+Tab
        EXPECT_EQ(form.view().tip_text().substr(0, 11), L"Pixel 12, 2");
        SendMessageW(form.window(), message, 0, 0);
        EXPECT_EQ(form.view().tip_text(), L"") << "it would cover menus and other programs";
        press_keys(form, {VK_LEFT, VK_RIGHT}, {VK_SHIFT});
    }
    press_keys(form, {'A'}, {VK_CONTROL});
    EXPECT_EQ(form.view().selection(), (PixelRect{0, 0, 300, 200}));
    EXPECT_EQ(form.view().tip_text(), L"");
}

TEST_F(ImageWindow, RightClickMenuZoomsAndCropsWhatIsSelected) {
    const frmImage& form = opened(random_picture(300, 200, 2));
    const auto choose_in_menu = [&](std::vector<WPARAM> keys) {
        for (const WPARAM key : keys)
            PostMessageW(form.window(), WM_KEYDOWN, key, 0);
        SendMessageW(form.window(), WM_CONTEXTMENU, 0, -1); // the menu key
    };
    PostMessageW(form.window(), WM_MOUSEHOVER, 0, MAKELPARAM(1, 1));
    choose_in_menu({VK_ESCAPE});
    EXPECT_EQ(form.view().tip_text(), L"") << "it would cover the menu";
    choose_in_menu({VK_DOWN, VK_RETURN});
    EXPECT_EQ(status(4), L" 150 %");
    press_keys(form, {VK_RIGHT, VK_RIGHT, VK_DOWN}, {VK_SHIFT});
    choose_in_menu({VK_UP, VK_UP, VK_RETURN});
    EXPECT_EQ(status(2), L" 3 x 2");
    opened(black_picture(9, 9), L"in front.bmp");
    zoom_by_wheel(form, 120, {0, 0});
    EXPECT_EQ(status(1) + status(4), L" in front.bmp 100 %");
    choose_in_menu({VK_DOWN, VK_RETURN});
    EXPECT_EQ(main.active_form(), &form);
    EXPECT_EQ(status(1) + status(4), L" picture.bmp 300 %");
}

TEST_F(ImageWindow, NothingElseStartsDuringAnOperation) {
    frmImage& form = opened(random_picture(1200, 900, 3));
    cDIBSection expected = picture_of(form).Copy();
    cDIBSection buffer = black_picture(1200, 900);
    cImageProcessDIB engine;
    engine.set_FilterType(kMeanRank);
    engine.ProcessImage(expected, buffer);
    // They wait in the queue and arrive while the operation lets the windows paint.
    PostMessageW(main.window(), WM_COMMAND, kCmdNegative, 0);
    PostMessageW(form.window(), WM_CLOSE, 0, 0);
    PostMessageW(main.window(), WM_CLOSE, 0, 0);
    InvalidateRect(form.window(), nullptr, FALSE);
    POINT inside{9, 9};
    ClientToScreen(form.window(), &inside);
    SetCursorPos(inside.x, inside.y);
    PostMessageW(main.window(), WM_SETCURSOR, 0, 0);
    choose(kCmdMedian);
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, IDC_CROSS));
    ASSERT_EQ(main.forms().size(), 1u);
    EXPECT_TRUE(same_pixels(picture_of(form), expected));
    MSG left;
    EXPECT_FALSE(PeekMessageW(&left, main.window(), WM_COMMAND, WM_COMMAND, PM_REMOVE))
        << "the operation was too short to be interrupted";
    EXPECT_FALSE(IsWindowVisible(main.status_bar().progress()));
    EXPECT_EQ(SendMessageW(main.status_bar().progress(), PBM_GETRANGE, FALSE, 0), 3594);
}

TEST_F(ImageWindow, WarnsOfScreensWithFewColours) {
    main.check_colour_depth(24);
    script.expect_message(L"Kelvane ! [OK]: Screen colour depths below 16 bits/pixel are not "
                          L"supported by this program.\r\n\r\nYou must exit out of program, "
                          L"change colour depth and re-load in program to get it to work.");
    main.check_colour_depth(8);
}

} // namespace
} // namespace kelvane::test
