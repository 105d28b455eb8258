#include "cli/layer_argument.h"

#include "cli/number_argument.h"
#include "cli/same_letters.h"
#include "cli/usage_error.h"
#include "export/export_options.h"
#include "export/layers.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace kelvane {
namespace {

// The letters to insert, delete or replace to get from one name to the other (Levenshtein), in any
// case.
std::size_t edit_distance(std::string_view from, std::string_view to) {
    std::vector<std::size_t> row(to.size() + 1); // distances of the letters so far to each start
    std::iota(row.begin(), row.end(), 0);
    for (std::size_t i = 0; i < from.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < to.size(); ++j) {
            const bool same = lower_letter(from[i]) == lower_letter(to[j]);
            const std::size_t replaced = diagonal + (same ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

bool begins_like_number(std::string_view text) {
    return text.empty() || std::string_view("0123456789+-. ").find(text[0]) != text.npos;
}

} // namespace

std::int16_t layer_argument(std::string_view text) {
    if (begins_like_number(text))
        return static_cast<std::int16_t>(number_argument("--layer", text, 1, kLayerCount));
    const auto layers = named_layers();
    const auto layer = std::ranges::min_element(
        layers, {}, [&](const Layer& each) { return edit_distance(text, each.name); });
    if (same_letters(layer->name, text)) return static_cast<std::int16_t>(layer->number);
    throw UsageError("--layer knows no \"" + std::string(text) + "\"; the nearest name is " +
                     std::string(layer->name) + " (" + std::to_string(layer->number) + ")");
}

std::string layer_list() {
    constexpr std::size_t kLineLength = 78;
    std::string list = "Layers:";
    std::size_t line = list.size();
    for (const Layer& layer : named_layers()) {
        const std::string next =
            ' ' + std::to_string(layer.number) + ' ' + std::string(layer.name) + ',';
        if (line + next.size() > kLineLength) {
            list += "\n ";
            line = 1;
        }
        list += next;
        line += next.size();
    }
    list.pop_back(); // the last comma
    return list;
}

} // namespace kelvane
