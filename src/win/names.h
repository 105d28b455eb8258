// Names as the system compares them: of files and of environment variables.
#pragma once

#include <string_view>

namespace kelvane::win {

/// Without regard to case or locale. Negative when `a` comes before `b`, 0 when they are one name.
int compare_names(std::wstring_view a, std::wstring_view b);

} // namespace kelvane::win
