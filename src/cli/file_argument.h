// Names of files on the command line: standard streams, and inputs that are not to be lost.
#pragma once

#include "base/file_error.h"
#include "base/safe_file.h"

#include <string>
#include <vector>

namespace kelvane {

/// A name as INPUT or output, in UTF-8; "-" is standard input or output.
inline constexpr const char* kStandardStream = SafeFile::kStandardOutput;

/// How messages call it: "standard input", "standard output" or the file's name.
std::string shown_input(const std::string& name);
std::string shown_output(const std::string& name);

/// Whether what is written to `output` appears on standard output, under whatever name.
bool is_standard_output(const std::string& output);

/// Throws `UsageError` when `output` is one of the files `inputs`, under whatever name or link.
void refuse_to_overwrite(const std::vector<std::string>& inputs, const std::string& output);

/// What `work` returns. Puts `file` before the message of its `FileError`.
template <class Work> auto with_file_name(const std::string& file, Work work) try {
    return work();
} catch (const FileError& error) {
    throw FileError(file + ": " + error.what());
}

} // namespace kelvane
