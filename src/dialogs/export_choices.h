// The choices of the export dialog: how they are stored in the settings, and the export options
// that they stand for.
#pragma once

#include "export/export_options.h"
#include "settings/settings_file.h"

#include <string>

namespace kelvane {

/// What the dialog's controls hold. List positions count from 0. The shape of the tracing that is
/// not chosen is stored as well.
struct ExportChoices {
    int layer = ExportOptions().lay - 1;
    std::wstring size = L"1";
    int unit = ExportOptions().unit;
    int version = ExportOptions().ver;
    bool full_autotrace = true;
    ShapeKind autotrace_shape = kShapePolygon; // polygon or wire
    ShapeKind linewise_shape = kShapePolygon;
    bool smooth = false; // outlines of the full autotrace
    bool mirrored = false;

    /// The stored choices; a missing or invalid one has its default.
    static ExportChoices read(const SettingsFile& settings);
    /// Stores them. The size is written as the number that its text begins with.
    void write(const SettingsFile& settings) const;

    /// The export they ask for. The size is the number its text begins with, "." being the
    /// decimal separator whatever the locale: "0,5" asks for 0.
    ExportOptions options() const;
};

} // namespace kelvane
