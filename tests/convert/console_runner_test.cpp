#include "convert/exec.h"
#include "convert/get_cmd_output.h"
#include "convert/quoted_argument.h"
#include "win/unique_handle.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <stdexcept>

namespace kelvane {
namespace {

std::wstring child() {
    return quoted_argument(std::filesystem::absolute(KELVANE_CONVERT_CHILD).wstring());
}

Exec child_doing(const std::wstring& params) {
    return {child(), params};
}

std::wstring lines(int count) {
    std::wstring text;
    for (int i = 0; i < count; ++i)
        text += L"line " + std::to_wstring(i) + L"\r\n";
    return text;
}

TEST(ConsoleRunner, LargeOutputArrivesWholeAndInOrder) {
    EXPECT_EQ(child_doing(L"lines 40000").WinExec(), lines(40000));
    EXPECT_EQ(child_doing(L"lines 1000").DosExec(), lines(1000));
    EXPECT_EQ(child_doing(L"lines 0").WinExec(), L"");
}

TEST(ConsoleRunner, StreamsComeAsTheyAreWrittenOrOneAlone) {
    std::wstring all;
    for (int i = 0; i < 500; ++i)
        all += std::to_wstring(i) + L' ';
    EXPECT_EQ(child_doing(L"alternate 500").WinExec(), all);
    const std::wstring command = child() + L" alternate 6";
    EXPECT_EQ(GetCommandOutput(command, true, false, true, SW_HIDE), L"0 2 4 ");
    EXPECT_EQ(GetCommandOutput(command, false, true, true, SW_HIDE), L"1 3 5 ");
    EXPECT_THROW(GetCommandOutput(command, false, false, true, SW_HIDE), std::invalid_argument);
}

std::wstring every_byte_in(UINT code_page) {
    std::string bytes;
    for (int i = 0; i < 50 * 224; ++i)
        bytes += static_cast<char>(32 + i % 224);
    std::wstring text(bytes.size(), L'\0');
    text.resize(MultiByteToWideChar(code_page, 0, bytes.data(), static_cast<int>(bytes.size()),
                                    text.data(), static_cast<int>(text.size())));
    return text;
}

TEST(ConsoleRunner, OutputIsOemOrAnsiText) {
    const std::wstring command = child() + L" bytes";
    EXPECT_EQ(child_doing(L"bytes").WinExec(), every_byte_in(CP_OEMCP));
    EXPECT_EQ(child_doing(L"bytes").DosExec(), every_byte_in(CP_OEMCP));
    EXPECT_EQ(GetCommandOutput(command, true, true, false, SW_HIDE), every_byte_in(CP_ACP));
}

TEST(ConsoleRunner, WhatCannotRunSaysSoOrNothing) {
    EXPECT_EQ(Exec().WinExec(), L"AppName() property not set.");
    EXPECT_EQ(Exec().DosExec(), L"AppName() property not set.");
    EXPECT_EQ(interpreter_line(0, L"tool"), std::nullopt);
    EXPECT_EQ(interpreter_line(1, L"tool"), L"RedirStub ");
    EXPECT_EQ((Exec{L"\"C:\\no such program.exe\"", L"-version"}).WinExec(), L"");
    EXPECT_EQ(GetCommandOutput(L"", true, true, true, SW_HIDE), L"");
}

TEST(ConsoleRunner, ArgumentsArriveAsTheyWere) {
    const std::wstring arguments[] = {L"plain",         L"two words", L"",
                                      L"quote\"inside", L"C:\\a b\\", L"\\\\\"x y\\\\",
                                      L"\x00E4\x4E2D"};
    std::wstring params = L"arguments";
    for (const std::wstring& argument : arguments)
        params += L' ' + quoted_argument(argument);
    const std::wstring expected = L"[plain][two words][][quote\"inside][C:\\a b\\][\\\\\"x y\\\\]"
                                  L"[\\u00e4\\u4e2d]";
    EXPECT_EQ(child_doing(params).WinExec(), expected);
    EXPECT_EQ(child_doing(L"arguments \"two words\" plain").DosExec(), L"[two words][plain]");
    EXPECT_EQ((Exec{L"echo", L"spoken by the interpreter"}).DosExec(),
              L"spoken by the interpreter\r\n");
}

TEST(ConsoleRunner, GrandchildWithTheOutputIsWaitedForUnlessWaitingIsEnded) {
    EXPECT_EQ(child_doing(L"grandchild 1000").WinExec(), L"child grandchild");
    Exec run = child_doing(L"grandchild 60000");
    int asked = 0;
    run.keep_waiting = [&] { return ++asked < 50; };
    EXPECT_EQ(run.WinExec(), L"child ");
    EXPECT_EQ(asked, 50);
}

TEST(ConsoleRunner, ProgramThatClosesItsOutputGoesOn) {
    const UniqueHandle event(CreateEventW(nullptr, TRUE, FALSE, L"KelvaneAlone"));
    EXPECT_EQ(child_doing(L"alone KelvaneAlone").WinExec(), L"");
    EXPECT_EQ(WaitForSingleObject(event.get(), 20000), WAIT_OBJECT_0);
}

TEST(ConsoleRunner, OutputIsCutOffAtFourMegabytes) {
    EXPECT_LT(child_doing(L"lines 500000").WinExec().size(), 5u << 20) << "all 6 MB came";
}

TEST(ConsoleRunner, ChildGetsItsStreamsAndNothingElse) {
    EXPECT_EQ(child_doing(L"input").WinExec(), L"-1") << "standard input is not at its end";
    SECURITY_ATTRIBUTES security{sizeof(security), nullptr, TRUE};
    const UniqueHandle event(CreateEventW(&security, TRUE, FALSE, nullptr));
    const auto value = std::to_wstring(reinterpret_cast<std::uintptr_t>(event.get()));
    EXPECT_EQ(child_doing(L"event " + value).WinExec(), L"not inherited");
}

} // namespace
} // namespace kelvane
