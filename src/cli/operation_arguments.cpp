#include "cli/operation_arguments.h"

#include "cli/number_argument.h"
#include "cli/usage_error.h"

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

} // namespace

OperationArguments::OperationArguments(std::string_view form, std::string_view text, bool given)
    : form_(form), text_(text), given_(given) {
    if (given) fields_ = split(text);
}

void OperationArguments::fail(const std::string& complaint) const {
    throw UsageError(full_name(complaint));
}

void OperationArguments::expect_count(std::size_t least, std::size_t most) const {
    if (count() >= least && count() <= most) return;
    if (most == 0) fail("takes no arguments, not \"" + text_ + "\"");
    const std::string accepted = least == most
                                     ? std::to_string(least)
                                     : std::to_string(least) + " to " + std::to_string(most);
    fail("takes " + accepted + " argument(s), not " + std::to_string(count()));
}

std::string OperationArguments::full_name(std::string_view name) const {
    return "operation \"" + form_ + "\": " + std::string(name);
}

int OperationArguments::integer(std::size_t index, std::string_view name, int least,
                                int most) const {
    return number_argument(full_name(name), field(index), least, most);
}

float OperationArguments::decimal(std::size_t index, std::string_view name, float least,
                                  float most) const {
    return number_argument(full_name(name), field(index), least, most);
}

std::string OperationArguments::file() {
    if (text_.empty()) fail("needs a file name");
    return input_file_ = text_;
}

std::string OperationArguments::file_before(std::size_t others) {
    if (count() < others + 1) fail("takes a file name and " + std::to_string(others) + " numbers");
    const std::size_t parts = count() - others;
    for (std::size_t i = 1; i < parts; ++i)
        fields_[0] += "," + fields_[i];
    fields_.erase(fields_.begin() + 1, fields_.begin() + static_cast<std::ptrdiff_t>(parts));
    if (fields_[0].empty()) fail("needs a file name");
    return input_file_ = fields_[0];
}

} // namespace kelvane
