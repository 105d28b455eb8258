#include "convert/exec.h"

#include <windows.h>

namespace kelvane {
namespace {

constexpr const wchar_t* kNoAppName = L"AppName() property not set.";

std::wstring environment_value(const wchar_t* name) {
    std::wstring value(32767, L'\0'); // the longest there is
    value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    return value;
}

unsigned long running_platform() {
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    GetVersionExW(&version);
    return version.dwPlatformId;
}

} // namespace

std::optional<std::wstring> interpreter_line(unsigned long platform, std::wstring command) {
    if (platform == VER_PLATFORM_WIN32s) return std::nullopt;
    if (platform == VER_PLATFORM_WIN32_WINDOWS) return L"RedirStub ";
    // The interpreter removes the outermost quotation marks of a command that begins with one.
    if (command.starts_with(L'"')) command = L'"' + command + L'"';
    return environment_value(L"COMSPEC") + L" /c " + command;
}

std::wstring Exec::DosExec() const {
    if (AppName.empty()) return kNoAppName;
    const auto line = interpreter_line(running_platform(), AppName + L" " + Params);
    if (!line) return L"Ancient OS detected. It's time to upgrade.";
    return GetCommandOutput(*line, true, true, true, ShowWindow, keep_waiting, Folder);
}

std::wstring Exec::WinExec() const {
    if (AppName.empty()) return kNoAppName;
    return GetCommandOutput(AppName + L" " + Params, true, true, true, ShowWindow, keep_waiting,
                            Folder);
}

} // namespace kelvane
