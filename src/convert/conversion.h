// One file made into pictures that the program can open.
#pragma once

#include "convert/converter.h"

#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace kelvane {

/// No picture came out.
class ConversionFailed : public std::runtime_error {
  public:
    explicit ConversionFailed(std::wstring report)
        : std::runtime_error("the converter produced no picture"), report_(std::move(report)) {}
    /// What the converter said, at most a few screens of it; may be empty.
    const std::wstring& report() const { return report_; }

  private:
    std::wstring report_;
};

struct ConvertedImage {
    std::filesystem::path picture; ///< a JPEG file
    std::filesystem::path preview; ///< a bitmap file within 200 x 200 pixels, see `make_previews`
    int width = 0;                 ///< of the picture, in pixels; 0 when the converter told none
    int height = 0;
};

/// The images of a file as picture files in a folder of their own, which goes with the object.
/// The file itself is only read: the converter sees a copy of it under a harmless name, which
/// cannot be taken for an option, for a pattern or for a choice of images. What the file holds
/// cannot refer to the copy, whose name nobody can guess, and may not reach for other files: see
/// `ConverterFolder`.
class Conversion {
  public:
    /// Copies and converts `source`. Throws `PlatformError` when it cannot be copied,
    /// `ConversionFailed`, and `ConverterCancelled` when `keep_waiting` says no; it is asked
    /// some fifty times a second.
    Conversion(const Converter& converter, const std::filesystem::path& source,
               KeepWaiting keep_waiting);

    /// At least one, in the file's order. Parts of the file that could not be converted are not
    /// among them.
    const std::vector<ConvertedImage>& images() const { return images_; }

    /// Writes the previews. `progress` hears how many there are, every few dozen. Throws
    /// `ConverterCancelled`; a preview that could not be made is a missing file.
    void make_previews(const std::function<void(long done)>& progress) const;

  private:
    void take_copy(const std::filesystem::path& source, const std::wstring& name) const;
    std::wstring run(const std::wstring& params) const;
    void find_images(const std::wstring& output);

    const Converter& converter_;
    KeepWaiting keep_waiting_;
    ConverterFolder folder_;
    std::vector<ConvertedImage> images_;
};

} // namespace kelvane
