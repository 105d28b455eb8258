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
    std::string name;
    std::string arguments; // as a user writes them, from the colon on; empty for none
    std::string help;      // one line
    Operation (*parse)(OperationArguments& arguments);
};

/// All operations in the order of their listing.
std::span<const OperationInfo> operations();

/// Operations and the files that they read when they run.
struct OperationList {
    std::vector<Operation> operations;
    std::vector<std::string> files; // UTF-8
};

/// Operations, each written as NAME or NAME:ARG[,ARG...]. Throws `UsageError` that says what is
/// accepted, before a file is touched.
OperationList parse_operations(const std::vector<std::string>& texts);

/// Runs them from left to right; with a seed their noise is reproducible.
void run_operations(const OperationList& list, const std::optional<std::uint32_t>& seed,
                    cDIBSection& picture, cImageProcessDIB& engine);

} // namespace kelvane
