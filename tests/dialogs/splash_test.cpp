#include "dialogs/frmAbout.h"
#include "dialogs/frmSplash.h"
#include "support/windows/modal_script.h"

#include "ids.h"

#include <gmock/gmock.h>

namespace kelvane {
namespace {

TEST(SplashWindow, GoesByItselfOrWhenClicked) {
    frmSplash splash(L"1.2.3");
    splash.show_modeless(nullptr);
    EXPECT_EQ(test::text_of(splash.window(), IDC_SPLASH_VERSION), L"Version 1.2.3");
    SendMessageW(splash.window(), WM_LBUTTONDOWN, 0, 0);
    EXPECT_EQ(splash.window(), nullptr);

    splash.show_modeless(nullptr);
    const ULONGLONG start = GetTickCount64();
    MSG message;
    while (splash.window() != nullptr && GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message);
    EXPECT_GE(GetTickCount64() - start, frmSplash::kStay - 100);
}

TEST(AboutBox, SaysWhenThereIsNoSystemInformation) {
    test::ModalScript script;
    script.expect([&](HWND dialog) {
        EXPECT_EQ(test::text_of(dialog, IDC_ABOUT_VERSION), L"Version 1.2.3");
        script.expect_message(IDOK);
        test::press(dialog, IDC_ABOUT_SYSTEM_INFO);
        test::press(dialog, IDOK);
    });
    EXPECT_TRUE(frmAbout(L"1.2.3", L"no such program.exe").show_modal(nullptr));
    EXPECT_THAT(script.messages(),
                testing::ElementsAre(L"The system information is not available at this time."));
}

} // namespace
} // namespace kelvane
