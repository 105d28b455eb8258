#include "texts/layer_names.h"

#include "export/export_options.h"
#include "texts/string_table.h"

#include "ids.h"

namespace kelvane {
namespace {

// Positions in the layer list, from 1, that have names of their own.
constexpr int kBoardLayers = 52;
constexpr int kFirstSchematicLayer = 91;
constexpr int kLastSchematicLayer = 96;

std::wstring layer_label(int position) {
    if (position <= kBoardLayers) return load_fixed_string(IDS_LAYER_FIRST + position - 1);
    if (position >= kFirstSchematicLayer && position <= kLastSchematicLayer)
        return load_fixed_string(IDS_LAYER_LAST + position - kLastSchematicLayer);
    return std::to_wstring(position) + load_fixed_string(IDS_LAYER_USERDEFINED);
}

} // namespace

std::vector<std::wstring> layer_labels() {
    std::vector<std::wstring> labels;
    for (int position = 1; position <= kLayerCount; ++position)
        labels.push_back(layer_label(position));
    return labels;
}

} // namespace kelvane
