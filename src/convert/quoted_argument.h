// Quoting of arguments in command lines.
#pragma once

#include <string>
#include <string_view>

namespace kelvane {

/// One argument as the child's C run-time takes a command line apart: in quotation marks when it
/// is empty or holds blanks or quotation marks, else as it is.
std::wstring quoted_argument(std::wstring_view argument);

} // namespace kelvane
