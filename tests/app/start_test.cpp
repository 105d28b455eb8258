// The main window without pictures, several files at once, and where the window opens again.
#include "app/window_place.h"
#include "app_test.h"

#include "support/windows/density.h"
#include "support/windows/screenshot.h"
#include "win/dpi.h"

#include "ids.h"

#include <gmock/gmock.h>

namespace kelvane::test {
namespace {

using testing::ElementsAre;

class Start : public AppTest {
  protected:
    HWND surface() const { return FindWindowExW(main.window(), nullptr, L"KelvaneStart", nullptr); }
    bool shown() const { return IsWindowVisible(surface()) != FALSE; }
    std::vector<std::wstring> links() const {
        std::vector<std::wstring> texts;
        for (HWND link = nullptr;
             (link = FindWindowExW(surface(), link, L"Button", nullptr)) != nullptr;)
            if (IsWindowVisible(link)) texts.push_back(win::window_text(link));
        return texts;
    }
    void click_link(unsigned command) const {
        SendDlgItemMessageW(surface(), static_cast<int>(command), BM_CLICK, 0, 0);
        handle_messages();
    }
    void screenshot(const std::string& name) const {
        const int dots = win::dots_per_inch(main.window());
        save_screenshot(main.window(), KELVANE_SCREENSHOTS,
                        name + (dots == 96 ? "" : "@" + std::to_string(dots)));
    }
};

TEST_F(Start, SurfaceShowsWhileNoPictureIsOpen) {
    EXPECT_TRUE(shown());
    EXPECT_THAT(links(), ElementsAre(L"Your first logo in five steps"));
    frmImage& form = opened(black_picture(9, 9), L"R&D.bmp");
    EXPECT_FALSE(shown());
    close(opened(black_picture(9, 9), L"other.bmp"));
    EXPECT_FALSE(shown());
    close(form);
    EXPECT_TRUE(shown());
    EXPECT_THAT(links(), ElementsAre(path(L"other.bmp"), path(L"R&D.bmp"),
                                     L"Your first logo in five steps"));
    screenshot("start-en");
    click_link(kCmdRecent1 + 1);
    ASSERT_EQ(main.forms().size(), 1u);
    EXPECT_EQ(caption(*main.forms()[0]), L"Image: " + path(L"R&D.bmp"));
    EXPECT_EQ(GetFocus(), main.forms()[0]->window());
    close(*main.forms()[0]);
    script.expect_message(testing::StartsWith(L"Error ! [OK]: "), IDOK); // there is no help file
    click_link(kCmdFirstLogo);
    script.expect_dialog([](HWND dialog) { choose_in_list(dialog, IDC_LANGUAGE, 1); });
    choose(kCmdLanguage);
    EXPECT_EQ(links().back(), L"Ihr erstes Logo in fünf Schritten");
    screenshot("start-de");
}

TEST(StartDensities, SurfaceGrowsWithTheScreen) {
    expect_on_finer_screens(L"Start.SurfaceShowsWhileNoPictureIsOpen", "start-de");
}

TEST_F(Start, KeysReachTheLinks) {
    close(opened(black_picture(9, 9), L"a.bmp"));
    close(opened(black_picture(9, 9), L"b.bmp"));
    SetFocus(main.window());
    EXPECT_EQ(GetDlgCtrlID(GetFocus()), kCmdRecent1);
    PostMessageW(GetFocus(), WM_KEYDOWN, VK_TAB, 0);
    PostQuitMessage(0);
    main.run();
    EXPECT_EQ(GetDlgCtrlID(GetFocus()), kCmdRecent1 + 1);
    for (const int link : {0, 1}) {
        const HWND button = GetDlgItem(surface(), static_cast<int>(kCmdRecent1) + link);
        UpdateWindow(button);
        const win::WindowContext context(button);
        const bool framed = GetPixel(context.get(), 0, 0) != GetPixel(context.get(), 1, 0);
        EXPECT_EQ(framed, link == 1);
    }
    PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 0);
    PostQuitMessage(0);
    main.run();
    handle_messages();
    ASSERT_EQ(main.forms().size(), 1u);
    EXPECT_EQ(status(1), L" a.bmp");
}

TEST_F(Start, OpenTakesSeveralFiles) {
    script.expect_file_dialog(saved(black_picture(2, 2), L"ä 1.bmp"));
    choose(kCmdOpen);
    close(*main.forms()[0]);
    saved(black_picture(3, 3), L"ö 2.bmp");
    script.expect_file_dialog(L"\"ä 1.bmp\" \"ö 2.bmp\"");
    choose(kCmdOpen);
    ASSERT_EQ(main.forms().size(), 2u);
    EXPECT_EQ(main.recent_files().file(1), path(L"ö 2.bmp"));
    EXPECT_EQ(main.recent_files().file(2), path(L"ä 1.bmp"));
    EXPECT_EQ(setting(L"global", L"lastpath"), folder.path().wstring() + L"\\");
}

TEST_F(Start, WindowOpensWhereItWasAndAlwaysWithinReach) {
    const SettingsFile settings(folder / "kelvane.ini");
    wchar_t computer[MAX_COMPUTERNAME_LENGTH + 1];
    DWORD length = std::size(computer);
    GetComputerNameW(computer, &length);
    const auto opened_at = [&](const wchar_t* remembered) {
        settings.WriteIniValue(L"window", computer, remembered);
        mfrmMain again(settings);
        again.show(SW_SHOWNORMAL);
        handle_messages();
        const HWND surface = FindWindowExW(again.window(), nullptr, L"KelvaneStart", nullptr);
        RECT hint{};
        GetWindowRect(GetWindow(surface, GW_CHILD), &hint);
        MapWindowPoints(nullptr, surface, reinterpret_cast<POINT*>(&hint), 2);
        EXPECT_EQ(GetPixel(win::WindowContext(surface).get(), hint.left - 5, hint.top),
                  GetSysColor(COLOR_WINDOW))
            << "no sheet under the texts";
        WINDOWPLACEMENT placement{};
        placement.length = sizeof placement;
        GetWindowPlacement(again.window(), &placement);
        const RECT& at = placement.rcNormalPosition;
        return std::array<LONG, 5>{at.left, at.top, at.right - at.left, at.bottom - at.top,
                                   IsZoomed(again.window())};
    };
    MoveWindow(main.window(), 30, 40, 700, 500, TRUE);
    ShowWindow(main.window(), SW_MAXIMIZE);
    ShowWindow(main.window(), SW_MINIMIZE);
    SendMessageW(main.window(), WM_CLOSE, 0, 0);
    EXPECT_EQ(setting(L"window", computer), L"30 40 700 500 1");
    const LONG right = GetSystemMetrics(SM_CXSCREEN), bottom = GetSystemMetrics(SM_CYSCREEN);
    using Place = std::array<LONG, 5>;
    EXPECT_EQ(opened_at(L"30 40 700 500 1"), (Place{30, 40, 700, 500, 1}));
    EXPECT_EQ(opened_at(L"9000 -3000 700 500 0"), (Place{right - 700, 0, 700, 500, 0}));
    EXPECT_EQ(opened_at(L"-9000 40 9000 9000 0"), (Place{0, 0, right, bottom, 0}));
    EXPECT_EQ(opened_at(L"1 2 0 99999999999 x"), opened_at(L"")) << "where the system puts it";
}

TEST(WindowPlaces, AreMovedInWorkspaceCoordinates) {
    // A task bar at the left and one at the top of a monitor that is right of another one.
    const MONITORINFO monitor{sizeof monitor, {1000, 0, 2000, 800}, {1060, 40, 2000, 800}, 0};
    const auto place = [&](const RECT& normal) {
        const RECT at = moved_into(normal, monitor);
        return std::array<LONG, 4>{at.left, at.top, at.right, at.bottom};
    };
    EXPECT_THAT(place({1900, 700, 2300, 1200}), ElementsAre(1540, 260, 1940, 760));
    EXPECT_THAT(place({0, -500, 5000, 100}), ElementsAre(1000, 0, 1940, 600));
}

} // namespace
} // namespace kelvane::test
