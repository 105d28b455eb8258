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

/// Whether a full path names a file that is there. One without its folders could be anybody's.
bool is_program(const std::filesystem::path& file);

/// Whether a program exists and says itself that it is ImageMagick's. One that has not answered
/// after a while, or when `keep_waiting` says no, is ended: it is something else. Runs, as all of
/// the converter does, in a folder of its own, where nobody can have put a library or a
/// configuration for it.
bool is_imagemagick(const std::filesystem::path& program, const KeepWaiting& keep_waiting);

/// The user did not want to wait for the converter, which was ended.
class ConverterCancelled : public std::runtime_error {
  public:
    ConverterCancelled() : std::runtime_error("the converter was cancelled") {}
};

/// The paths come from the settings file. Since version 7 magick.exe does the work of both programs
/// and may be named in the place of either. Neither is ever run through the command interpreter.
class Converter {
  public:
    /// Looks for nothing yet. `settings` outlives the object.
    explicit Converter(const SettingsFile& settings) : settings_(settings) {}

    /// Reads both paths and asks both programs what they are; whether both are ImageMagick's.
    bool DetectConverter(const KeepWaiting& keep_waiting);
    /// What the last detection has found, unless a program has gone since.
    bool available() const;

    /// What a command line of convert prints. It runs in `folder`, so that `params` can name files
    /// without it. Throws `ConverterCancelled` when `keep_waiting` says no.
    std::wstring convert(const std::wstring& params, const ConverterFolder& folder,
                         const KeepWaiting& keep_waiting) const;
    /// Whether convert is the one program of version 7. As it is it gives up a file at the first
    /// thing that it dislikes; with the word "convert" before its parameters it goes on as convert
    /// always did.
    bool does_everything() const;
    /// Asks for the list of formats, up to three times when what comes is no answer; what came
    /// last. Throws `ConverterCancelled`.
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
