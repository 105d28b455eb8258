#include "convert/quoted_argument.h"

namespace kelvane {

std::wstring quoted_argument(std::wstring_view argument) {
    if (!argument.empty() && argument.find_first_of(L" \t\n\v\"") == std::wstring_view::npos)
        return std::wstring(argument);
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0; // directly before the current character
    for (const wchar_t c : argument) {
        // Backslashes count double only before a quotation mark, which needs one more itself.
        if (c == L'"') quoted.append(backslashes + 1, L'\\');
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        quoted += c;
    }
    quoted.append(backslashes, L'\\');
    return quoted + L'"';
}

} // namespace kelvane
