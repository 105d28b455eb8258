#include "driven_program.h"

#include "convert/quoted_argument.h"
#include "support/windows/modal_script.h"
#include "win/dialog.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace kelvane::test {
namespace {

constexpr DWORD kLook = 10; // milliseconds between two checks of a condition
// Milliseconds. Only a fault makes anybody wait so long: under load a file dialog of Wine stands
// still for several times five seconds.
constexpr DWORD kPatience = 60000;

[[noreturn]] void fail(const std::string& what) {
    throw std::runtime_error(what);
}

// The job ends its processes when its last handle is closed, also when the test crashes.
UniqueHandle ending_job() {
    UniqueHandle job(CreateJobObjectW(nullptr, nullptr));
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    SetInformationJobObject(job.get(), JobObjectExtendedLimitInformation, &limits, sizeof limits);
    return job;
}

} // namespace

DrivenProgram::DrivenProgram(const std::filesystem::path& program,
                             const std::vector<std::wstring>& arguments)
    : job_(ending_job()) {
    std::wstring line = quoted_argument(program.wstring());
    for (const std::wstring& argument : arguments)
        line += L' ' + quoted_argument(argument);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION information{};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr,
                        nullptr, &startup, &information))
        fail("the program cannot be started: error " + std::to_string(GetLastError()));
    process_ = UniqueHandle(information.hProcess);
    id_ = information.dwProcessId;
    const UniqueHandle thread(information.hThread);
    AssignProcessToJobObject(job_.get(), process_.get());
    ResumeThread(thread.get());
}

DrivenProgram::~DrivenProgram() {
    if (WaitForSingleObject(process_.get(), 0) == WAIT_OBJECT_0) return;
    TerminateProcess(process_.get(), 1);
    WaitForSingleObject(process_.get(), kPatience);
}

void DrivenProgram::wait_for(const std::string& what,
                             const std::function<bool()>& condition) const {
    const ULONGLONG deadline = GetTickCount64() + kPatience;
    while (!condition()) {
        if (WaitForSingleObject(process_.get(), kLook) == WAIT_OBJECT_0 && !condition())
            fail("the program ended with code " + std::to_string(exit_code()) + " before " + what);
        if (GetTickCount64() < deadline) continue;
        std::string shown;
        for (const HWND window : windows())
            shown += ' ' + testing::PrintToString(win::window_text(window));
        fail("waited in vain for " + what + "; there are" + shown);
    }
}

std::vector<HWND> DrivenProgram::windows() const {
    std::vector<HWND> found;
    HWND window = nullptr;
    while ((window = FindWindowExW(nullptr, window, nullptr, nullptr)) != nullptr) {
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        if (owner == id_ && IsWindowVisible(window)) found.push_back(window);
    }
    return found;
}

HWND DrivenProgram::window(const std::wstring& class_name, const std::wstring& caption) const {
    HWND found = nullptr;
    wait_for("a window " + testing::PrintToString(caption), [&] {
        for (const HWND window : windows())
            if (class_of(window) == class_name && IsWindowEnabled(window) &&
                win::window_text(window).starts_with(caption))
                found = window;
        return found != nullptr;
    });
    return found;
}

void DrivenProgram::answer(HWND dialog, int button) const {
    const std::string what = "the end of " + testing::PrintToString(win::window_text(dialog));
    PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, button)));
    wait_for(what, [&] { return !IsWindow(dialog); });
}

DWORD DrivenProgram::exit_code() const {
    wait_for("its end", [&] { return WaitForSingleObject(process_.get(), 0) == WAIT_OBJECT_0; });
    DWORD code = 0;
    GetExitCodeProcess(process_.get(), &code);
    return code;
}

std::wstring text_in(HWND window) {
    wchar_t text[1024] = L"";
    SendMessageW(window, WM_GETTEXT, std::size(text), reinterpret_cast<LPARAM>(text));
    return text;
}

} // namespace kelvane::test
