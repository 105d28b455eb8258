#include "texts/export_text.h"

#include "base/text.h"
#include "export/layers.h"
#include "export/length.h"
#include "export/length_text.h"
#include "texts/string_table.h"

#include "ids.h"

#include <array>

namespace kelvane {
namespace {

// A noun for one and for several, in the order of `ShapeKind`.
struct Noun {
    int one;
    int several;
};
constexpr std::array<Noun, kShapeNames.size()> kNouns{{
    {IDS_EXPORT_ONE_POLYGON, IDS_EXPORT_POLYGONS},
    {IDS_EXPORT_ONE_WIRE, IDS_EXPORT_WIRES},
    {IDS_EXPORT_ONE_RECTANGLE, IDS_EXPORT_RECTANGLES},
}};

ExportOptions in_board_unit(ExportOptions options) {
    options.unit = board_unit(options);
    return options;
}

std::wstring area_text(double width_mm, double height_mm, const ExportOptions& shown) {
    return wide_text(length_text(width_mm, shown) + " x " + length_text(height_mm, shown) + ' ' +
                     std::string(unit_word(shown)));
}

// "0.09 mm", "0.146 mm"
std::wstring short_width(double millimetres, const ExportOptions& shown) {
    std::string text = width_text(millimetres, shown);
    if (text.ends_with('0')) text.pop_back();
    return wide_text(text + ' ' + std::string(unit_word(shown)));
}

std::wstring thin_text(int id, const BoardWidths& widths, double limit_mm,
                       const ExportOptions& shown) {
    return LoadString(id, {short_width(*widths.thinnest_mm, shown), short_width(limit_mm, shown)});
}

// Points tell what smoothing saves.
std::wstring counts_text(const BoardReport& report, const ExportReport& counts,
                         const ExportOptions& options) {
    std::wstring objects = objects_text(report.objects, options);
    if (options.smooth > 0)
        objects = LoadString(IDS_EXPORT_POINTS, {objects, std::to_wstring(counts.points)});
    return objects + L", " + wide_text(byte_text(counts.bytes));
}

std::wstring warning_text(BoardWarning warning, const BoardReport& report,
                          const BoardQuestion& question) {
    const ExportOptions shown = in_board_unit(question.options);
    switch (warning) {
    case BoardWarning::NoPixelSize:
        return LoadString(IDS_EXPORT_NO_SIZE);
    case BoardWarning::NothingDark:
        return LoadString(IDS_EXPORT_NOTHING_DARK);
    case BoardWarning::ThinLines:
        return thin_text(IDS_EXPORT_THIN_LINE, report.lines, question.limits.line_mm, shown);
    case BoardWarning::ThinGaps:
        return thin_text(IDS_EXPORT_THIN_GAP, report.gaps, question.limits.gap_mm, shown);
    case BoardWarning::OutlineLayer:
        return LoadString(IDS_EXPORT_OUTLINE_LAYER, {layer_text(shown.lay)});
    case BoardWarning::NotMirrored:
        return LoadString(IDS_EXPORT_NOT_MIRRORED, {layer_text(shown.lay)});
    case BoardWarning::ManyObjects:
        break;
    }
    return LoadString(IDS_EXPORT_MANY_OBJECTS, {std::to_wstring(kMostObjects)});
}

} // namespace

std::wstring objects_text(std::uint64_t count, const ExportOptions& options) {
    const Noun& noun = kNouns[static_cast<std::size_t>(options.optPoly)];
    return LoadString(count == 1 ? noun.one : noun.several, {std::to_wstring(count)});
}

std::wstring layer_text(int layer) {
    const std::wstring name = wide_text(layer_name(layer));
    return std::to_wstring(layer) + (name.empty() ? L"" : L" ") + name;
}

std::wstring board_sizes_text(const BoardReport& report, const std::optional<ExportReport>& counts,
                              const BoardQuestion& question) {
    const ExportOptions shown = in_board_unit(question.options);
    const std::wstring objects =
        counts ? counts_text(report, *counts, shown) : LoadString(IDS_EXPORT_COUNTING);
    return LoadString(IDS_EXPORT_SIZES,
                      {area_text(report.picture_width_mm, report.picture_height_mm, shown),
                       area_text(report.ink_width_mm, report.ink_height_mm, shown), objects});
}

std::wstring board_warning_text(const BoardReport& report,
                                const std::optional<ExportReport>& counts,
                                const BoardQuestion& question) {
    if (counts && counts->RangeOVL) return L"! " + LoadString(IDS_EXPORT_OUT_OF_RANGE);
    if (report.warnings.empty()) return {};
    return L"! " + warning_text(report.warnings.front(), report, question);
}

std::int16_t board_unit(const ExportOptions& options) {
    constexpr std::int16_t kInch = 1;
    const bool metric = options.unit == kMillimetres || unit_of(options).name == "mic";
    return metric ? kMillimetres : kInch;
}

} // namespace kelvane
