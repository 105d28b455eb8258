// What the shell answers, in words.
#include "app_test.h"

namespace kelvane::test {
namespace {

class Shell : public AppTest {};

TEST_F(Shell, MessagesSayWhyNothingOpens) {
    write_text(path(L"page.kelvane-test"), "");
    expect_error(L"File not found");
    main.ShellEx(path(L"gone.html"));
    expect_error(L"No application is associated with this file type.");
    main.ShellEx(path(L"page.kelvane-test"));
    const HANDLE change =
        FindFirstChangeNotificationW(folder.path().c_str(), FALSE, FILE_NOTIFY_CHANGE_FILE_NAME);
    main.ShellEx(L"cmd.exe", L"open", L"/c echo>opened", folder.path().wstring(), SW_HIDE);
    EXPECT_EQ(WaitForSingleObject(change, 20000), WAIT_OBJECT_0) << "nothing started there";
    FindCloseChangeNotification(change);
}

} // namespace
} // namespace kelvane::test
