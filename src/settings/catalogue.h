// Every setting of the program: section, key and default. Keys are spelled nowhere else. Sections
// and keys are those of existing settings files.
#pragma once

#include "settings/settings_file.h"

#include <limits>
#include <optional>
#include <string>

namespace kelvane {

/// A whole number. Text that is no number reads as 0, a value outside `lowest` to `highest` as if
/// it were missing.
struct NumberSetting {
    const wchar_t* section;
    const wchar_t* key;
    int when_missing;
    int lowest = std::numeric_limits<int>::min();
    int highest = std::numeric_limits<int>::max();
};

/// A whole number whose absence means "as the dialog was designed".
struct OptionalSetting {
    const wchar_t* section;
    const wchar_t* key;
};

/// A number with decimals, read as the text that fills its field.
struct DecimalSetting {
    const wchar_t* section;
    const wchar_t* key;
    const wchar_t* when_missing;
};

/// A file or a folder; empty while missing.
struct PathSetting {
    const wchar_t* section;
    const wchar_t* key;
};

int read_setting(const SettingsFile& file, const NumberSetting& setting);
std::optional<int> read_setting(const SettingsFile& file, const OptionalSetting& setting);
std::wstring read_setting(const SettingsFile& file, const DecimalSetting& setting);
std::wstring read_setting(const SettingsFile& file, const PathSetting& setting);

// A failed write is ignored: the choice then holds until the program ends.
void write_setting(const SettingsFile& file, const NumberSetting& setting, int value);
void write_setting(const SettingsFile& file, const OptionalSetting& setting, int value);
void write_setting(const SettingsFile& file, const DecimalSetting& setting, double value);
void write_setting(const SettingsFile& file, const PathSetting& setting, const std::wstring& path);

namespace settings {

/// String table offset: 0 German, 10000 English. The program does not start with any other.
inline constexpr NumberSetting kLanguage{L"global", L"language", 10000};
/// Where the open dialogs and where the save dialogs start.
inline constexpr PathSetting kOpenFolder{L"global", L"lastpath"};
inline constexpr PathSetting kSaveFolder{L"global", L"lastpath2"};

/// The sliders of the three reductions.
inline constexpr OptionalSetting kBrightnessLimit{L"imageexport", L"bwval"};
inline constexpr OptionalSetting kColourLimit{L"imageexport", L"bwval2"};
inline constexpr OptionalSetting kEdgeLimit{L"imageexport", L"bwval3"};
/// The channels of the colour reduction, 0 or 1. Blue has always been spelled "bbb".
inline constexpr NumberSetting kUseRed{L"imageexport", L"bwr", 0, 0, 1};
inline constexpr NumberSetting kUseGreen{L"imageexport", L"bwg", 0, 0, 1};
inline constexpr NumberSetting kUseBlue{L"imageexport", L"bbb", 0, 0, 1};
/// The reduction chosen last, 1 to 4, and what uneven light takes: pixels (odd) and greys.
inline constexpr NumberSetting kReductionKind{L"imageexport", L"bwkind", 1, 1, 4};
inline constexpr NumberSetting kNeighbourhoodSize{L"imageexport", L"bwsize", 51, 3, 999};
inline constexpr NumberSetting kNeighbourhoodOffset{L"imageexport", L"bwoffset", 10, -255, 255};
/// What follows every reduction: black and white exchanged, specks removed (0 or 1), up to how many
/// pixels.
inline constexpr NumberSetting kInvertReduction{L"imageexport", L"bwinvert", 0, 0, 1};
inline constexpr NumberSetting kRemoveSpecks{L"imageexport", L"bwclean", 0, 0, 1};
inline constexpr NumberSetting kLargestSpeck{L"imageexport", L"bwspeck", 10, 1, 9999};

/// Layer number, from 1: the position in the export dialog's list.
inline constexpr OptionalSetting kLayer{L"imageexport", L"layer"};
/// Edge length of one pixel in the chosen unit.
inline constexpr DecimalSetting kPixelSize{L"imageexport", L"size", L"1"};
/// Positions in the lists of units and of versions, from 0.
inline constexpr OptionalSetting kUnit{L"imageexport", L"unit"};
inline constexpr OptionalSetting kVersion{L"imageexport", L"version"};
/// Option buttons of the export dialog: full autotrace chosen (-1 or 0), its shape, the linewise
/// shape.
inline constexpr OptionalSetting kFullAutotrace{L"imageexport", L"exp1"};
inline constexpr OptionalSetting kAutotraceShape{L"imageexport", L"poly1"};
inline constexpr OptionalSetting kLinewiseShape{L"imageexport", L"poly2"};
/// Whether outlines are smooth, and whether the drawing is mirrored for a layer seen from below (-1
/// or 0).
inline constexpr OptionalSetting kSmooth{L"imageexport", L"smooth"};
inline constexpr OptionalSetting kMirrored{L"imageexport", L"mirror"};

/// Last size entered in the size dialog, in pixels; below 1 the picture's own size is offered.
inline constexpr NumberSetting kNewWidth{L"imageexport", L"resx", 0};
inline constexpr NumberSetting kNewHeight{L"imageexport", L"resy", 0};

/// The converter's two programs.
inline constexpr PathSetting kConvertProgram{L"ImageMagick", L"Convert"};
inline constexpr PathSetting kIdentifyProgram{L"ImageMagick", L"Identify"};
/// 1: the warning about files with several images is not shown again.
inline constexpr NumberSetting kHideSeveralImagesWarning{L"ImageMagick", L"Warning", 0, 0, 1};

/// The recent files: capacity, number of entries, and what entry n (see `Numbered`) holds: its path
/// and whether the converter opens it.
inline constexpr const wchar_t* kRecentSection = L"ImageMRU";
inline constexpr OptionalSetting kRecentCapacity{kRecentSection, L"MaxCount"};
inline constexpr OptionalSetting kRecentCount{kRecentSection, L"Count"};
inline constexpr PathSetting kRecentFile{kRecentSection, L"File"};
inline constexpr NumberSetting kRecentFlag{kRecentSection, L"FileFlag", 0};

/// The main window's places: the keys are names of computers, for a settings file on a removable
/// disk; see app/window_place.h.
inline constexpr const wchar_t* kWindowSection = L"window";

} // namespace settings

/// A setting whose key is followed by a number: entry `n` of the recent files, from 1.
template <class Setting> struct Numbered {
    Setting setting;
    int n;
};

std::wstring read_setting(const SettingsFile& file, const Numbered<PathSetting>& entry);
int read_setting(const SettingsFile& file, const Numbered<NumberSetting>& entry);
void write_setting(const SettingsFile& file, const Numbered<PathSetting>& entry,
                   const std::wstring& path);
void write_setting(const SettingsFile& file, const Numbered<NumberSetting>& entry, int value);

} // namespace kelvane
