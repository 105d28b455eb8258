// What every dialog does, with one that has nothing of its own.
#include "win/dialog.h"

#include "support/windows/modal_script.h"

#include "ids.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <new>

namespace kelvane::test {
namespace {

struct BareDialog : win::Dialog {
    BareDialog() : Dialog(IDD_LANGUAGE) {}
    void notify() const { SendMessageW(window(), WM_COMMAND, MAKEWPARAM(IDC_LANGUAGE, kOwn), 0); }
    void load() override { notify(); }
    bool confirm() override { return check(); }
    void on_command(int, int code) override { notifications += code == kOwn; }

    static constexpr int kOwn = 100; // unlike those that the list sends when it gets the focus
    std::function<bool()> check;
    int notifications = 0;
};

struct AnyDialog : testing::Test {
    ModalScript script;
};

TEST_F(AnyDialog, ListensToNothingWhileItLoadsAndConfirms) {
    BareDialog dialog;
    const auto answer = [&](std::function<bool()> check) {
        dialog.check = std::move(check);
        script.expect_dialog([](HWND) {});
        return dialog.show_modal(nullptr);
    };
    const auto closed_meanwhile = [&] {
        dialog.notify();
        dialog.close();
        return true;
    };
    EXPECT_FALSE(answer(closed_meanwhile));
    EXPECT_EQ(dialog.notifications, 0);
    EXPECT_TRUE(answer([] { return true; }));
    EXPECT_THROW(answer([]() -> bool { throw std::bad_alloc(); }), std::bad_alloc);
}

TEST_F(AnyDialog, HasTheFontOfTheSystemsMessages) {
    script.expect_dialog(
        [](HWND window) {
            NONCLIENTMETRICSW metrics{};
            metrics.cbSize = sizeof metrics;
            SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
            LOGFONTW font{};
            const LRESULT used = SendDlgItemMessageW(window, IDOK, WM_GETFONT, 0, 0);
            GetObjectW(reinterpret_cast<HFONT>(used), sizeof font, &font);
            EXPECT_STREQ(font.lfFaceName, metrics.lfMessageFont.lfFaceName);
            EXPECT_EQ(font.lfHeight, metrics.lfMessageFont.lfHeight);
            EXPECT_EQ(font.lfWeight, metrics.lfMessageFont.lfWeight);
        },
        IDCANCEL);
    BareDialog().show_modal(nullptr);
}

TEST_F(AnyDialog, StandsInTheMiddleOfItsOwnerButOnTheScreen) {
    const LONG right = GetSystemMetrics(SM_CXSCREEN), bottom = GetSystemMetrics(SM_CYSCREEN);
    for (const POINT middle : {POINT{500, 400}, POINT{10, 10}, POINT{right - 10, bottom - 10}}) {
        const HWND owner =
            CreateWindowW(L"STATIC", L"", WS_POPUP | WS_VISIBLE, middle.x - 50, middle.y - 50, 100,
                          100, nullptr, nullptr, nullptr, nullptr);
        script.expect_dialog(
            [&](HWND window) {
                RECT place{};
                GetWindowRect(window, &place);
                const LONG width = place.right - place.left, height = place.bottom - place.top;
                EXPECT_EQ(place.left, std::clamp((2 * middle.x - width) / 2, 0L, right - width));
                EXPECT_EQ(place.top, std::clamp((2 * middle.y - height) / 2, 0L, bottom - height));
            },
            IDCANCEL);
        BareDialog().show_modal(owner);
        DestroyWindow(owner);
    }
}

} // namespace
} // namespace kelvane::test
