#include "dialogs/field_input.h"

#include "base/strict_number.h"

#include <algorithm>

namespace kelvane {
namespace {

// ASCII without blanks at both ends; other characters become "?", which is in no number.
std::string plain(std::wstring_view text) {
    const std::size_t first = text.find_first_not_of(L" \t");
    if (first == std::wstring_view::npos) return {};
    text = text.substr(first, text.find_last_not_of(L" \t") - first + 1);
    std::string result(text.size(), '?');
    std::transform(text.begin(), text.end(), result.begin(),
                   [](wchar_t c) { return c < 0x80 ? static_cast<char>(c) : '?'; });
    return result;
}

} // namespace

std::optional<int> whole_number(std::wstring_view text) {
    return strict_number<int>(plain(text));
}

std::optional<int> whole_number(std::wstring_view text, int lowest, int highest) {
    const std::optional<int> value = whole_number(text);
    return value && *value >= lowest && *value <= highest ? value : std::nullopt;
}

std::optional<double> decimal_number(std::wstring_view text) {
    std::string point = plain(text);
    std::replace(point.begin(), point.end(), ',', '.');
    return strict_number<double>(point);
}

} // namespace kelvane
