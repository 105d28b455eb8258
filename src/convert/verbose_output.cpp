#include "convert/verbose_output.h"

#include <algorithm>
#include <optional>

namespace kelvane {
namespace {

constexpr std::size_t kMostDigits = 9; // what an int holds whatever they are

bool take(std::wstring_view& text, std::wstring_view beginning) {
    if (!text.starts_with(beginning)) return false;
    text.remove_prefix(beginning.size());
    return true;
}

std::optional<int> take_number(std::wstring_view& text) {
    const std::size_t end = std::min(text.find_first_not_of(L"0123456789"), text.size());
    if (end == 0 || end > kMostDigits) return std::nullopt;
    int number = 0;
    for (const wchar_t digit : text.substr(0, end))
        number = number * 10 + (digit - L'0');
    text.remove_prefix(end);
    return number;
}

// The first word of the form "64x48".
std::optional<PictureSize> size_in(std::wstring_view text) {
    for (auto blank = text.find(L' '); blank != text.npos; blank = text.find(L' ', blank + 1)) {
        std::wstring_view word = text.substr(blank + 1);
        const auto width = take_number(word);
        if (!width || !take(word, L"x")) continue;
        if (const auto height = take_number(word)) return PictureSize{*width, *height};
    }
    return std::nullopt;
}

} // namespace

std::map<int, PictureSize> written_sizes(std::wstring_view output, std::wstring_view stem) {
    std::map<int, PictureSize> sizes;
    while (!output.empty()) {
        const std::size_t end = std::min(output.find(L'\n'), output.size() - 1);
        std::wstring_view line = output.substr(0, end + 1);
        output.remove_prefix(end + 1);
        line.remove_prefix(std::min(line.find(L"=>"), line.size()));
        line.remove_prefix(std::min(line.find(stem), line.size()));
        if (!take(line, stem)) continue;
        const auto number = take_number(line);
        if (!number || !take(line, L".jpg")) continue;
        if (const auto size = size_in(line)) sizes[*number] = *size;
    }
    return sizes;
}

} // namespace kelvane
