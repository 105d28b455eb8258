// How large the drawing becomes: the options --unit, --size, --width, --height and --dpi.
#pragma once

#include "cli/picture_job.h"

#include <cstdint>
#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace kelvane {

/// The options' texts as given; at most one but for the unit.
struct SizeArguments {
    std::optional<std::string> unit;
    std::optional<std::string> size;
    std::optional<std::string> width;
    std::optional<std::string> height;
    std::optional<std::string> dpi;
};

/// Declares them all.
void add_size_arguments(CLI::App& command, SizeArguments& arguments);

/// The size of a pixel, as far as it is known without the picture.
class PixelSize {
  public:
    /// Throws `UsageError`.
    explicit PixelSize(const SizeArguments& arguments);

    /// Index into `kUnits`. When --unit is not given it is the unit that --width or --height names:
    /// a script for 20 mm is written in mm.
    std::int16_t unit() const { return unit_; }

    /// The edge of a pixel in that unit, for a picture that has become `width` x `height` pixels.
    /// Throws `FileError` when the file was to tell its resolution and does not.
    double of(int width, int height, const PictureOrigin& origin) const;

  private:
    enum class Way { Pixel, Width, Height, FileResolution };

    Way way_ = Way::Pixel;
    double length_ = 1; // of a pixel, the width or the height, in the unit
    std::int16_t unit_ = 0;
};

} // namespace kelvane
