#include "export/length_text.h"

#include "export/length.h"

#include <array>
#include <charconv>
#include <iterator>

namespace kelvane {
namespace {

std::string fixed(double value, int decimals) {
    char text[350]; // a double has up to 309 digits before its point
    char* const end =
        std::to_chars(text, std::end(text), value, std::chars_format::fixed, decimals).ptr;
    return {text, end};
}

// Decimals for about a hundredth of a millimetre, in the order of `kUnits`.
int decimals_of(const ExportOptions& options) {
    constexpr std::array<int, kUnits.size()> kDecimals{0, 3, 0, 2};
    return kDecimals[static_cast<std::size_t>(options.unit)];
}

} // namespace

std::string_view unit_word(const ExportOptions& options) {
    return unit_of(options).word;
}

std::string length_text(double millimetres, const ExportOptions& options) {
    return fixed(from_millimetres(millimetres, options), decimals_of(options));
}

std::string width_text(double millimetres, const ExportOptions& options) {
    return fixed(from_millimetres(millimetres, options), decimals_of(options) + 1);
}

std::string byte_text(std::uint64_t bytes) {
    constexpr double kStep = 1000;
    if (bytes < kStep) return std::to_string(bytes) + " bytes";
    const double kilobytes = static_cast<double>(bytes) / kStep;
    if (kilobytes < kStep) return fixed(kilobytes, 1) + " kB";
    return fixed(kilobytes / kStep, 1) + " MB";
}

} // namespace kelvane
