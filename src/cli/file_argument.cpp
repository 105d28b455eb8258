#include "cli/file_argument.h"

#include "base/file_identity.h"
#include "base/text.h"
#include "cli/usage_error.h"

namespace kelvane {
namespace {

std::optional<FileIdentity> input_identity(const std::string& name) {
    return name == kStandardStream ? identity_of_standard_input() : identity_of(utf8_path(name));
}

std::optional<FileIdentity> output_identity(const std::string& name) {
    return name == kStandardStream ? identity_of_standard_output() : identity_of(utf8_path(name));
}

} // namespace

std::string shown_input(const std::string& name) {
    return name == kStandardStream ? "standard input" : name;
}

std::string shown_output(const std::string& name) {
    return name == kStandardStream ? "standard output" : name;
}

bool is_standard_output(const std::string& output) {
    if (output == kStandardStream) return true;
    const auto identity = output_identity(output);
    return identity && identity == identity_of_standard_output();
}

// A file that does not exist yet has no identity and cannot be lost; a terminal may be both input
// and output.
void refuse_to_overwrite(const std::vector<std::string>& inputs, const std::string& output) {
    const auto written = output_identity(output);
    if (!written || !written->ordinary) return;
    for (const std::string& input : inputs)
        if (input_identity(input) == written)
            throw UsageError("the output " + shown_output(output) + " would replace the input " +
                             shown_input(input) + "; name another file with -o");
}

} // namespace kelvane
