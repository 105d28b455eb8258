// The operations of the command line: one table for parsing, listing and help.
#pragma once

#include "engine/image_process.h"
#include "image/dib_section.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kelvane {

class OperationArguments;

/// Changes `picture` with the engine. Throws `FileError`, the file's name first, when a file it
/// names is no use or memory runs out.
using Operation = std::function<void(cDIBSection& picture, cImageProcessDIB& engine)>;

struct OperationInfo {
    std::string_view name;
    std::string_view arguments; // as a user writes them, from the colon on; empty for none
    std::string_view help;      // one line
    Operation (*parse)(OperationArguments& arguments);
};

/// All operations in the order of their listing.
std::span<const OperationInfo> operations();

/// One operation written as NAME or NAME:ARG[,ARG...]. Throws `UsageError` that says what is
/// accepted. Files it names are read when it runs.
Operation parse_operation(std::string_view text);

/// All of a command line's operations: every one is understood before a file is touched.
std::vector<Operation> parse_operations(const std::vector<std::string>& texts);

/// Runs them from left to right; with a seed their noise is reproducible.
void run_operations(const std::vector<Operation>& operations,
                    const std::optional<std::uint32_t>& seed, cDIBSection& picture,
                    cImageProcessDIB& engine);

} // namespace kelvane
