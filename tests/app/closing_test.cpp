// Closing asks before it discards a changed document.
#include "app_test.h"

#include <gmock/gmock.h>

namespace kelvane::test {
namespace {

using testing::HasSubstr;

class Closing : public AppTest {};

TEST_F(Closing, DocumentAsksOnlyWhenChanged) {
    close(opened(black_picture(2, 2)));
    EXPECT_TRUE(main.forms().empty());
    frmImage& form = changed();
    script.expect_message(L"Kelvane ? [Yes] No Cancel: The image 'picture.bmp' has been changed."
                          L"\r\n\r\nDo you want to save it?",
                          IDCANCEL);
    close(form);
    ASSERT_EQ(main.forms().size(), 1u);
    script.expect_message(IDNO);
    choose(kCmdClose);
    EXPECT_TRUE(main.forms().empty());
    EXPECT_EQ(status(0) + status(1), L"  ");
}

TEST_F(Closing, YesSavesAndTheNextCloseNeedsNoQuestion) {
    frmImage& form = changed();
    script.expect_message(IDYES);
    script.expect_file_dialog(path(L"saved.bmp"));
    choose(kCmdClose);
    ASSERT_EQ(main.forms().size(), 1u);
    EXPECT_FALSE(form.document().Dirty());
    EXPECT_TRUE(exists(folder / "saved.bmp"));
    choose(kCmdClose);
    EXPECT_TRUE(main.forms().empty());
}

TEST_F(Closing, ProgramAsksForOneAfterTheOtherUntilCancelled) {
    changed(L"1.bmp");
    changed(L"2.bmp");
    script.expect_message(HasSubstr(L"'1.bmp'"), IDCANCEL);
    choose(kCmdExit);
    EXPECT_EQ(main.active_form()->document().FileTitle(), L"1.bmp") << "was to be seen";
    EXPECT_EQ(status(0), L" ") << "the other one's last operation";
    EXPECT_EQ(main.forms().size(), 2u);
    EXPECT_EQ(setting(L"ImageMRU", L"Count"), L"");
    write_text(folder / "kelvane.ini", "[ImageMRU]\r\nCount=1\r\nFile1=another program's\r\n");
    script.expect_message(HasSubstr(L"'1.bmp'"), IDNO);
    script.expect_message(HasSubstr(L"'2.bmp'"), IDNO);
    choose(kCmdExit);
    EXPECT_EQ(main.window(), nullptr);
    EXPECT_EQ(setting(L"ImageMRU", L"Count"), L"3");
    EXPECT_EQ(main.run(), 0);
}

TEST_F(Closing, SystemShutdownAsksNothing) {
    changed();
    EXPECT_TRUE(SendMessageW(main.window(), WM_QUERYENDSESSION, 0, 0));
    SendMessageW(main.window(), WM_ENDSESSION, TRUE, 0);
    EXPECT_EQ(setting(L"ImageMRU", L"Count"), L"1");
}

} // namespace
} // namespace kelvane::test
