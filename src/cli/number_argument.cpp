#include "cli/number_argument.h"

#include "base/strict_number.h"
#include "cli/usage_error.h"

#include <charconv>
#include <cstdint>
#include <iterator>
#include <string>
#include <type_traits>

namespace kelvane {
namespace {

// 0.5 rather than 0.500000.
template <typename Number> std::string short_text(Number value) {
    char text[32];
    char* const end = std::to_chars(text, std::end(text), value).ptr;
    return {text, end};
}

} // namespace

template <typename Number>
Number number_argument(std::string_view name, std::string_view text, Number least, Number most) {
    const std::optional<Number> value = strict_number<Number>(text);
    if (value && *value >= least && *value <= most) return *value;
    const std::string kind = std::is_integral_v<Number> ? "a whole number" : "a number";
    throw UsageError(std::string(name) + " is " + kind + " from " + short_text(least) + " to " +
                     short_text(most) + ", not \"" + std::string(text) + "\"");
}

template int number_argument(std::string_view, std::string_view, int, int);
template std::uint32_t number_argument(std::string_view, std::string_view, std::uint32_t,
                                       std::uint32_t);
template float number_argument(std::string_view, std::string_view, float, float);

} // namespace kelvane
