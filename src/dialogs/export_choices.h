// The choices of the export dialog apart from its window: how they are remembered and what they
// mean for an export.
#pragma once

#include "export/export_options.h"
#include "settings/settings_file.h"

#include <string>

namespace kelvane {

/// What the dialog's controls hold. List positions count from 0. The shape of the tracing that is
/// not chosen is a choice too: it is there again the next time.
struct ExportChoices {
    int layer = ExportOptions().lay - 1;
    std::wstring size = L"1";
    int unit = ExportOptions().unit;
    int version = ExportOptions().ver;
    bool full_autotrace = true;
    ShapeKind autotrace_shape = kShapePolygon; // polygon or wire
    ShapeKind linewise_shape = kShapePolygon;

    /// The choices of the last export; what is missing or out of range is as in a new object.
    static ExportChoices read(const SettingsFile& settings);
    /// Remembers them. The size is written as the number it was taken for.
    void write(const SettingsFile& settings) const;

    /// The export they ask for. The size is the number its text begins with, "." being the
    /// decimal separator whatever the locale: "0,5" asks for 0.
    ExportOptions options() const;
};

} // namespace kelvane
