// The converter: the two programs of ImageMagick that the user has named.
#pragma once

#include "convert/converter_folder.h"
#include "convert/exec.h"
#include "convert/format_list.h"
#include "settings/settings_file.h"

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace kelvane {

/// Whether `file` is a full path and names an existing file. A relative one could be found in a
/// folder where anyone may write.
bool is_program(const std::filesystem::path& file);

/// Whether a program exists and reports that it belongs to ImageMagick. It is ended, with the
/// answer false, after 20 seconds or when `keep_waiting` answers false. Runs in a private folder,
/// as the converter always does, so that it loads no library and no configuration from the current
/// folder.
bool is_imagemagick(const std::filesystem::path& program, const KeepWaiting& keep_waiting);

/// The user stopped the converter, which was ended.
class ConverterCancelled : public std::runtime_error {
  public:
    ConverterCancelled() : std::runtime_error("the converter was cancelled") {}
};

/// The paths come from the settings file. Since version 7 magick.exe does the work of both programs
/// and may be named in the place of either. Neither is ever run through the command interpreter.
class Converter {
  public:
    /// Detects nothing yet. `settings` outlives the object.
    explicit Converter(const SettingsFile& settings) : settings_(settings) {}

    /// Reads both paths and runs both programs; whether both belong to ImageMagick.
    bool DetectConverter(const KeepWaiting& keep_waiting);
    /// Whether the last detection succeeded and both programs still exist.
    bool available() const;

    /// Runs convert in `folder`, relative to which `params` names files, and returns its output.
    /// Throws `ConverterCancelled` when `keep_waiting` answers false.
    std::wstring convert(const std::wstring& params, const ConverterFolder& folder,
                         const KeepWaiting& keep_waiting) const;
    /// Whether convert is the one program of version 7. It stops at the first error in a file; with
    /// the word "convert" before its parameters it goes on, as the older convert does.
    bool does_everything() const;
    /// Asks for the list of formats, up to three times while the output is too short, and returns
    /// the last output. Throws `ConverterCancelled`.
    std::wstring format_list(const KeepWaiting& keep_waiting) const;

  private:
    const SettingsFile& settings_;
    std::filesystem::path convert_;
    std::filesystem::path identify_;
    bool detected_ = false;
};

/// Output of "-list format" shorter than this is no answer.
inline constexpr std::size_t kShortestFormatList = 10;

} // namespace kelvane
