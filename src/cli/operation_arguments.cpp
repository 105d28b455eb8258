#include "cli/operation_arguments.h"

#include "cli/usage_error.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace kelvane {
namespace {

std::vector<std::string> split(std::string_view text) {
    std::vector<std::string> fields;
    for (;;) {
        const std::size_t comma = text.find(',');
        fields.emplace_back(text.substr(0, comma));
        if (comma == std::string_view::npos) return fields;
        text.remove_prefix(comma + 1);
    }
}

template <typename Number> bool parse(const std::string& field, Number& value) {
    const char* end = field.data() + field.size();
    const auto [stop, error] = std::from_chars(field.data(), end, value);
    return error == std::errc{} && stop == end;
}

// 0.5 rather than 0.500000.
std::string short_text(float value) {
    char text[32];
    return {text, std::to_chars(text, std::end(text), value).ptr};
}

std::string range_text(std::string_view name, const std::string& least, const std::string& most,
                       const std::string& given) {
    return std::string(name) + " is from " + least + " to " + most + ", not \"" + given + "\"";
}

} // namespace

OperationArguments::OperationArguments(std::string_view form, std::string_view text, bool given)
    : form_(form), text_(text), given_(given) {
    if (given) fields_ = split(text);
}

void OperationArguments::fail(const std::string& complaint) const {
    throw UsageError("operation \"" + form_ + "\": " + complaint);
}

void OperationArguments::expect_count(std::size_t least, std::size_t most) const {
    if (count() >= least && count() <= most) return;
    if (most == 0) fail("takes no arguments, not \"" + text_ + "\"");
    const std::string accepted = least == most
                                     ? std::to_string(least)
                                     : std::to_string(least) + " to " + std::to_string(most);
    fail("takes " + accepted + " argument(s), not " + std::to_string(count()));
}

int OperationArguments::integer(std::size_t index, std::string_view name, int least,
                                int most) const {
    int value = 0;
    if (!parse(field(index), value) || value < least || value > most)
        fail(range_text(name, std::to_string(least), std::to_string(most), field(index)));
    return value;
}

float OperationArguments::decimal(std::size_t index, std::string_view name, float least,
                                  float most) const {
    float value = 0;
    if (!parse(field(index), value) || !(value >= least && value <= most))
        fail(range_text(name, short_text(least), short_text(most), field(index)));
    return value;
}

std::string OperationArguments::file() const {
    if (text_.empty()) fail("needs a file name");
    return text_;
}

void OperationArguments::join_file_before(std::size_t others) {
    if (count() < others + 1) fail("takes a file name and " + std::to_string(others) + " numbers");
    const std::size_t parts = count() - others;
    for (std::size_t i = 1; i < parts; ++i)
        fields_[0] += "," + fields_[i];
    fields_.erase(fields_.begin() + 1, fields_.begin() + static_cast<std::ptrdiff_t>(parts));
    if (fields_[0].empty()) fail("needs a file name");
}

} // namespace kelvane
