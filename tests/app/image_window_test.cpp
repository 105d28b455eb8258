// What the document's window shows, how it scrolls, and what happens during an operation.
#include "app_test.h"

#include "ids.h"

#include <commctrl.h>

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
    choose(kCmdMedian);
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
