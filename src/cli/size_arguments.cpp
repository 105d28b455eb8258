#include "cli/size_arguments.h"

#include "base/file_error.h"
#include "base/strict_number.h"
#include "cli/length_argument.h"
#include "cli/usage_error.h"
#include "export/length.h"

#include <CLI/CLI.hpp>

#include <cmath>
#include <vector>

namespace kelvane {
namespace {

constexpr const char* kFile = "file"; // --dpi file

std::vector<std::string> unit_words() {
    std::vector<std::string> words;
    for (const Unit& unit : kUnits)
        words.emplace_back(unit.word);
    return words;
}

double size_argument(const std::string& text) {
    const std::optional<double> size = strict_number<double>(text);
    if (!size || !(*size > 0) || *size > kLargestLength)
        throw UsageError("--size is a number greater than 0 and at most 1e9, not \"" + text + "\"");
    return *size;
}

double dpi_argument(const std::string& text) {
    constexpr double kMostDpi = 1e6;
    const std::optional<double> dpi = strict_number<double>(text);
    if (!dpi || *dpi < 1 || *dpi > kMostDpi)
        throw UsageError("--dpi is a number from 1 to 1e6 or \"file\", not \"" + text + "\"");
    return *dpi;
}

// Pixels per inch of the opened picture. A picture that was reduced when it was opened has larger
// pixels. Operations that change the number of pixels leave the size of a pixel as it is.
double resolution_of(const PictureOrigin& origin) {
    if (!origin.resolution)
        throw FileError("states no resolution; give --dpi N, --width or --size instead");
    const auto [x, y] = *origin.resolution;
    constexpr double kSquare = .01; // units of length make 72 x 72.009 of a square pixel
    if (std::abs(x - y) > kSquare * x)
        throw FileError("has pixels that are not square (" + std::to_string(std::lround(x)) +
                        " x " + std::to_string(std::lround(y)) + " dpi); give --dpi N instead");
    return x * origin.width_opened / origin.width_in_file;
}

} // namespace

void add_size_arguments(CLI::App& command, SizeArguments& arguments) {
    command
        .add_option("--unit", arguments.unit,
                    "unit of the script, and of lengths without one; not given, it is that of "
                    "--width or --height")
        ->default_str("mil")
        ->check(CLI::IsMember(unit_words()));
    command.add_option("--size", arguments.size, "edge of one pixel in the unit")
        ->default_str("1")
        ->type_name("X");
    command
        .add_option("--width", arguments.width,
                    "instead of --size: how wide the picture becomes, such as 20mm, 0.8in, 800mil "
                    "or 500mic")
        ->type_name("LENGTH");
    command.add_option("--height", arguments.height, "instead of --size: how high it becomes")
        ->type_name("LENGTH");
    command
        .add_option("--dpi", arguments.dpi,
                    "instead of --size: pixels per inch; file: what the PNG, JPEG, BMP or TIFF "
                    "file says")
        ->type_name("N|file");
}

PixelSize::PixelSize(const SizeArguments& arguments) {
    if (arguments.size.has_value() + arguments.width.has_value() + arguments.height.has_value() +
            arguments.dpi.has_value() >
        1)
        throw UsageError("--size, --width, --height and --dpi exclude each other");
    Length side;
    if (arguments.width) {
        way_ = Way::Width;
        side = length_argument("--width", *arguments.width, LeastLength::AboveZero);
    } else if (arguments.height) {
        way_ = Way::Height;
        side = length_argument("--height", *arguments.height, LeastLength::AboveZero);
    }
    if (arguments.unit)
        unit_ = *unit_index(*arguments.unit);
    else
        unit_ = side.unit.value_or(unit_);

    if (way_ != Way::Pixel)
        length_ = converted_length(side.value, side.unit.value_or(unit_), unit_);
    else if (arguments.dpi == kFile)
        way_ = Way::FileResolution;
    else if (arguments.dpi)
        length_ = pixel_size_for_resolution(dpi_argument(*arguments.dpi), unit_);
    else if (arguments.size)
        length_ = size_argument(*arguments.size);
}

double PixelSize::of(int width, int height, const PictureOrigin& origin) const {
    switch (way_) {
    case Way::Pixel:
        break;
    case Way::Width:
        return pixel_size_for_length(length_, width);
    case Way::Height:
        return pixel_size_for_length(length_, height);
    case Way::FileResolution:
        return pixel_size_for_resolution(resolution_of(origin), unit_);
    }
    return length_;
}

} // namespace kelvane
