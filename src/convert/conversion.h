// Conversion of a file into pictures that the program can open.
#pragma once

#include "convert/converter.h"

#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace kelvane {

/// The converter produced no picture.
class ConversionFailed : public std::runtime_error {
  public:
    explicit ConversionFailed(std::wstring report)
        : std::runtime_error("the converter produced no picture"), report_(std::move(report)) {}
    /// The last 8000 characters of the converter's output; may be empty.
    const std::wstring& report() const { return report_; }

  private:
    std::wstring report_;
};

struct ConvertedImage {
    std::filesystem::path picture; ///< a JPEG file
    std::filesystem::path preview; ///< a bitmap file within 200 x 200 pixels, see `make_previews`
    int width = 0;                 ///< of the picture, in pixels; 0 when not known
    int height = 0;
};

/// The images of a file as picture files in a folder of their own, which the destructor removes.
/// The file itself is only read: the converter gets a copy of it under a name that cannot be taken
/// for an option, a pattern or a choice of images. The name is random, so that the file's content
/// cannot refer to it. For access to other files see `ConverterFolder`.
class Conversion {
  public:
    /// Copies and converts `source`. Throws `PlatformError` when it cannot be copied,
    /// `ConversionFailed`, and `ConverterCancelled` when `keep_waiting`, called about fifty times a
    /// second, answers false.
    Conversion(const Converter& converter, const std::filesystem::path& source,
               KeepWaiting keep_waiting);

    /// At least one, in the file's order. Parts of the file that could not be converted are not
    /// among them.
    const std::vector<ConvertedImage>& images() const { return images_; }

    /// Writes the previews. `progress` gets the number made so far, after every 50. Throws
    /// `ConverterCancelled`; the file of a preview that could not be made is missing.
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
