// What the shell answers, in words.
#include "app/shell_errors.h"
#include "app_test.h"

#include "ids.h"

#include <gmock/gmock.h>

namespace kelvane::test {
namespace {

TEST(ShellErrors, EveryAnswerHasItsText) {
    const std::map<int, int> kTexts = {{0, 4000},  {2, 4001},  {3, 4002},  {5, 4004},  {8, 4012},
                                       {11, 4003}, {26, 4014}, {27, 4005}, {28, 4008}, {29, 4007},
                                       {30, 4006}, {31, 4011}, {32, 4009}};
    for (int answer = -1; answer <= 32; ++answer)
        EXPECT_EQ(shell_error_text(answer), kTexts.contains(answer) ? kTexts.at(answer) : 4015)
            << answer;
    EXPECT_EQ(shell_error_text(33), 0);
}

class Shell : public AppTest {};

TEST_F(Shell, MessagesSayWhyNothingOpens) {
    write_text(path(L"page.kelvane-test"), "");
    script.expect_message(IDOK);
    main.ShellEx(path(L"gone.html"));
    script.expect_message(IDOK);
    main.ShellEx(path(L"page.kelvane-test"));
    EXPECT_THAT(script.messages(),
                testing::ElementsAre(L"File not found",
                                     L"No application is associated with this file type."));
    const HANDLE change =
        FindFirstChangeNotificationW(folder.path().c_str(), FALSE, FILE_NOTIFY_CHANGE_FILE_NAME);
    main.ShellEx(L"cmd.exe", L"open", L"/c echo>opened", folder.path().wstring(), SW_HIDE);
    EXPECT_EQ(WaitForSingleObject(change, 20000), WAIT_OBJECT_0) << "nothing started there";
    FindCloseChangeNotification(change);
}

} // namespace
} // namespace kelvane::test
