#include "dialogs/export_choices.h"

#include "base/lenient_number.h"
#include "settings/catalogue.h"

namespace kelvane {
namespace {

// Values of option buttons in existing settings files.
constexpr int kChosen = -1;
constexpr int kNotChosen = 0;

bool chosen(const SettingsFile& settings, const OptionalSetting& setting, bool when_missing) {
    const auto value = read_setting(settings, setting);
    return value ? *value != kNotChosen : when_missing;
}

// A position in a list of `count` entries, which the settings count from `first` on.
int position(const SettingsFile& settings, const OptionalSetting& setting, int first,
             std::size_t count, int when_missing) {
    const auto stored = read_setting(settings, setting);
    const bool usable = stored && *stored >= first && *stored - first < static_cast<int>(count);
    return usable ? *stored - first : when_missing;
}

} // namespace

ExportChoices ExportChoices::read(const SettingsFile& settings) {
    ExportChoices choices;
    choices.layer = position(settings, settings::kLayer, 1, kLayerCount, choices.layer);
    choices.size = read_setting(settings, settings::kPixelSize);
    choices.unit = position(settings, settings::kUnit, 0, kUnits.size(), choices.unit);
    choices.version =
        position(settings, settings::kVersion, 0, kEagleVersions.size(), choices.version);
    choices.full_autotrace = chosen(settings, settings::kFullAutotrace, true);
    const bool polygon = chosen(settings, settings::kAutotraceShape, true);
    choices.autotrace_shape = polygon ? kShapePolygon : kShapeWire;
    const int shape = read_setting(settings, settings::kLinewiseShape).value_or(kShapePolygon);
    if (shape == kShapeWire || shape == kShapeRectangle)
        choices.linewise_shape = static_cast<ShapeKind>(shape);
    choices.smooth = chosen(settings, settings::kSmooth, false);
    choices.mirrored = chosen(settings, settings::kMirrored, false);
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
    write_setting(settings, settings::kSmooth, smooth ? kChosen : kNotChosen);
    write_setting(settings, settings::kMirrored, mirrored ? kChosen : kNotChosen);
}

ExportOptions ExportChoices::options() const {
    ExportOptions options;
    options.exp = full_autotrace;
    options.optPoly = full_autotrace ? autotrace_shape : linewise_shape;
    options.lay = static_cast<std::int16_t>(layer + 1);
    options.size = lenient_number(size);
    options.unit = static_cast<std::int16_t>(unit);
    options.smooth = full_autotrace && smooth ? kMostSmoothing : 0;
    options.ver = static_cast<std::int16_t>(version);
    return options;
}

} // namespace kelvane
