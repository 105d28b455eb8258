// Numbers as they stand on the command line, the same for options and for operations.
#pragma once

#include <string_view>

namespace kelvane {

/// The `strict_number` in `text`, from `least` to `most`, that users know by `name`. Throws
/// `UsageError` with the name and what is accepted. `Number` is int, std::uint32_t or float.
template <typename Number>
Number number_argument(std::string_view name, std::string_view text, Number least, Number most);

} // namespace kelvane
