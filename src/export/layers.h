// EAGLE's layers by number and name.
#pragma once

#include <span>
#include <string_view>

namespace kelvane {

struct Layer {
    int number;
    std::string_view name;
};

/// The layers that have a name in EAGLE, by number. tDocu and bDocu are 51 and 52: there is no
/// layer 50.
std::span<const Layer> named_layers();

/// EAGLE's name of layer `number`; empty for one without a name.
std::string_view layer_name(int number);

/// The outline of the board: what is drawn there, the maker cuts out.
inline constexpr int kOutlineLayer = 20;

/// Whether the layer is seen from below, where a drawing is read from right to left.
bool is_bottom_layer(int number);

} // namespace kelvane
