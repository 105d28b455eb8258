#include "dialogs/export_choices.h"

#include "settings/catalogue.h"
#include "settings/lenient_number.h"
#include "settings/string_table.h"

#include "ids.h"

namespace kelvane {
namespace {

// Values of option buttons in existing settings files.
constexpr int kChosen = -1;
constexpr int kNotChosen = 0;

bool chosen(const SettingsFile& settings, const OptionalSetting& setting, bool when_missing) {
    const auto value = read_setting(settings, setting);
    return value ? *value != kNotChosen : when_missing;
}

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

ExportChoices ExportChoices::read(const SettingsFile& settings) {
    ExportChoices choices;
    choices.layer = read_setting(settings, settings::kLayer) - 1;
    choices.size = read_setting(settings, settings::kPixelSize);
    choices.unit = read_setting(settings, settings::kUnit);
    choices.version = read_setting(settings, settings::kVersion);
    choices.full_autotrace = chosen(settings, settings::kFullAutotrace, true);
    const bool polygon = chosen(settings, settings::kAutotraceShape, true);
    choices.autotrace_shape = polygon ? kShapePolygon : kShapeWire;
    const int shape = read_setting(settings, settings::kLinewiseShape).value_or(kShapePolygon);
    if (shape == kShapeWire || shape == kShapeRectangle)
        choices.linewise_shape = static_cast<ShapeKind>(shape);
    return choices;
}

void ExportChoices::write(const SettingsFile& settings) const {
    const ExportOptions asked = options();
    write_setting(settings, settings::kLayer, asked.lay);
    write_setting(settings, settings::kPixelSize, asked.size);
    write_setting(settings, settings::kUnit, unit);
    write_setting(settings, settings::kVersion, version);
    write_setting(settings, settings::kFullAutotrace, full_autotrace ? kChosen : kNotChosen);
    write_setting(settings, settings::kAutotraceShape,
                  autotrace_shape == kShapePolygon ? kChosen : kNotChosen);
    write_setting(settings, settings::kLinewiseShape, linewise_shape);
}

ExportOptions ExportChoices::options() const {
    ExportOptions options;
    options.exp = full_autotrace;
    options.optPoly = full_autotrace ? autotrace_shape : linewise_shape;
    options.lay = static_cast<std::int16_t>(layer + 1);
    options.size = lenient_number(size);
    options.unit = static_cast<std::int16_t>(unit);
    options.ver = static_cast<std::int16_t>(version);
    return options;
}

std::vector<std::wstring> layer_labels() {
    std::vector<std::wstring> labels;
    for (int position = 1; position <= kLayerCount; ++position)
        labels.push_back(layer_label(position));
    return labels;
}

} // namespace kelvane
