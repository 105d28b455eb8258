#include "win/platform_error.h"

#include <windows.h>

namespace kelvane {

std::wstring platform_error_text(unsigned long code) {
    wchar_t text[512];
    constexpr DWORD kHow =
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK;
    std::wstring result(text,
                        FormatMessageW(kHow, nullptr, code, 0, text, std::size(text), nullptr));
    result.erase(result.find_last_not_of(L" \r\n") + 1);
    return result.empty() ? L"Error " + std::to_wstring(code) : result;
}

PlatformError::PlatformError(unsigned long code)
    : std::runtime_error("system error " + std::to_string(code)), code_(code) {}

} // namespace kelvane
