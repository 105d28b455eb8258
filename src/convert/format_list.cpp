#include "convert/format_list.h"

#include "convert/lower_case.h"

#include <algorithm>
#include <optional>

namespace kelvane {
namespace {

constexpr std::wstring_view kBlanks = L" \t\r";

/// The part of a text, or of a line, that is not parsed yet.
class Rest {
  public:
    explicit Rest(std::wstring_view text) : text_(text) {}

    bool empty() const { return text_.empty(); }
    std::wstring_view line() {
        const std::size_t end = text_.find(L'\n');
        return take(end, end == std::wstring_view::npos ? end : end + 1);
    }
    /// The next word, without the mark of formats that are read from memory; empty at the end.
    std::wstring_view word() {
        skip_blanks(L" \t\r*");
        const std::size_t end = text_.find_first_of(L" \t\r*");
        return take(end, end);
    }
    std::wstring_view trimmed() {
        skip_blanks(L" \t\r*");
        return text_.substr(0, text_.find_last_not_of(kBlanks) + 1);
    }

  private:
    std::wstring_view take(std::size_t end, std::size_t next) {
        const std::wstring_view taken = text_.substr(0, end);
        text_.remove_prefix(std::min(next, text_.size()));
        return taken;
    }
    void skip_blanks(std::wstring_view blanks) {
        text_.remove_prefix(std::min(text_.find_first_not_of(blanks), text_.size()));
    }

    std::wstring_view text_;
};

// "rw+", "r--" ...
bool is_mode(std::wstring_view word) {
    return word.size() == 3 && (word[0] == L'-' || lower(word[0]) == L'r') &&
           (word[1] == L'-' || lower(word[1]) == L'w') && (word[2] == L'-' || word[2] == L'+');
}

// Other characters could have a meaning in a filter.
bool is_name(std::wstring_view word) {
    return !word.empty() && word.front() != L'-' && std::ranges::all_of(word, [](wchar_t c) {
        return (lower(c) >= L'a' && lower(c) <= L'z') || (c >= L'0' && c <= L'9') || c == L'-' ||
               c == L'_';
    });
}

std::optional<PictureFormat> format_in(std::wstring_view line) {
    Rest rest(line);
    const std::wstring_view name = rest.word();
    std::wstring_view mode = rest.word();
    if (!is_mode(mode)) mode = rest.word(); // that was the module
    if (!is_name(name) || !is_mode(mode)) return std::nullopt;
    return PictureFormat{std::wstring(name), lower(mode[0]) == L'r', mode[2] == L'+',
                         std::wstring(rest.trimmed())};
}

// Moves to the line after the table's head.
void skip_head(Rest& output) {
    bool titles = false;
    while (!output.empty()) {
        const std::wstring_view line = output.line();
        if (titles && Rest(line).trimmed().starts_with(L"-----")) return;
        titles |= in_lower_case(line).find(L"description") != std::wstring::npos;
    }
}

std::wstring filter_text(std::wstring_view description) {
    std::wstring text(description);
    for (wchar_t& c : text) {
        if (c == L':' || c == L'|') c = L'-'; // the second one separates the filter's parts
        if (c < L' ') c = L' ';
    }
    return text;
}

} // namespace

std::vector<PictureFormat> parse_format_list(std::wstring_view output) {
    std::vector<PictureFormat> formats;
    Rest rest(output);
    skip_head(rest);
    while (!rest.empty())
        if (auto format = format_in(rest.line())) formats.push_back(std::move(*format));
    return formats;
}

std::wstring open_filter(const std::vector<PictureFormat>& formats, std::wstring_view all_files) {
    std::wstring filter;
    for (const PictureFormat& format : formats)
        if (format.readable)
            filter += format.name + L" - " + filter_text(format.description) + L"|*." +
                      in_lower_case(format.name) + L"|";
    return filter.append(all_files);
}

bool can_hold_several(const std::vector<PictureFormat>& formats, std::wstring_view extension) {
    if (!extension.starts_with(L'.')) return false;
    std::wstring name = in_lower_case(extension.substr(1));
    if (name == L"tif") name = L"tiff"; // the list tells each format once
    return std::ranges::any_of(formats, [&](const PictureFormat& format) {
        return format.several_images && in_lower_case(format.name) == name;
    });
}

} // namespace kelvane
