// What the layers of a board are called.
#pragma once

#include <string>
#include <vector>

namespace kelvane {

/// The entries of the layer list: 255, the entry at position n standing for layer n + 1. Labels of
/// the positions from 50 to 52 are one ahead of the layer they stand for, because no name belongs
/// to layer 50; scripts have always carried the position.
std::vector<std::wstring> layer_labels();

} // namespace kelvane
