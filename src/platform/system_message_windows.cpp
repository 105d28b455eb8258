#include "base/system_message.h"

#include <windows.h>

#include <iterator>

namespace kelvane {

std::wstring system_message(unsigned long code) {
    wchar_t text[512];
    constexpr DWORD kHow =
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK;
    std::wstring message(text,
                         FormatMessageW(kHow, nullptr, code, 0, text, std::size(text), nullptr));
    message.erase(message.find_last_not_of(L" \r\n") + 1);
    return message;
}

} // namespace kelvane
