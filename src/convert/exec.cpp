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

} // namespace

std::wstring Exec::DosExec() const {
    if (AppName.empty()) return kNoAppName;
    std::wstring command = AppName + L" " + Params;
    // The interpreter takes away the outermost quotation marks of a command that begins with one.
    if (command.starts_with(L'"')) command = L'"' + command + L'"';
    return GetCommandOutput(environment_value(L"COMSPEC") + L" /c " + command, true, true, true,
                            ShowWindow, keep_waiting);
}

std::wstring Exec::WinExec() const {
    if (AppName.empty()) return kNoAppName;
    return GetCommandOutput(AppName + L" " + Params, true, true, true, ShowWindow, keep_waiting);
}

} // namespace kelvane
