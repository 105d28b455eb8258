#include "base/lenient_number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>

namespace kelvane {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr std::string_view kDigits = "0123456789";

// from_chars alone would also take "inf" and "nan".
bool begins_with_digits(std::string_view text) {
    if (text.starts_with('.')) text.remove_prefix(1);
    return !text.empty() && kDigits.find(text.front()) != std::string_view::npos;
}

} // namespace

double lenient_number(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+')) text.remove_prefix(1);
    double value = 0;
    if (!begins_with_digits(text) ||
        std::from_chars(text.data(), text.data() + text.size(), value).ec != std::errc())
        return 0;
    return negative ? -value : value;
}

double lenient_number(std::wstring_view text) {
    std::string narrow(text.size(), '?');
    std::transform(text.begin(), text.end(), narrow.begin(), [](wchar_t c) {
        return static_cast<char32_t>(c) < 128 ? static_cast<char>(c) : '?';
    });
    return lenient_number(narrow);
}

int lenient_integer(std::wstring_view text) {
    const double value = std::nearbyint(lenient_number(text));
    constexpr double kLowest = std::numeric_limits<int>::min();
    constexpr double kHighest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(value, kLowest, kHighest));
}

} // namespace kelvane
