// The operations of the command line: listing, parsing and running.
#pragma once

#include "cli/operation_families.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kelvane {

/// All operations in the order of their listing.
const std::vector<OperationInfo>& operations();

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
