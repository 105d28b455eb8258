// What an operation of the command line is, and the operations family by family.
#pragma once

#include "engine/image_process.h"
#include "image/dib_section.h"

#include <functional>
#include <span>
#include <string>

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

/// Each family in the order of its listing.
std::span<const OperationInfo> filter_operations();
std::span<const OperationInfo> tone_operations();
std::span<const OperationInfo> reduction_operations();
std::span<const OperationInfo> combination_operations();
std::span<const OperationInfo> geometry_operations();

} // namespace kelvane
