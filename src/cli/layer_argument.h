// Layers as they stand on the command line, by number or by EAGLE's name.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kelvane {

/// A number from 1 to 255 or a name in any case ("21", "tPlace"). Throws `UsageError`; for an
/// unknown name it shows the nearest one.
std::int16_t layer_argument(std::string_view text);

/// All names in lines for a help text, "Layers: 1 Top, 2 Route2 ...".
std::string layer_list();

} // namespace kelvane
