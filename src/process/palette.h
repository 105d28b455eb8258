// cPalette: a list of colours from a palette file.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string_view>
#include <vector>

namespace kelvane {

/// Colours numbered 1 to `Count`.
class cPalette {
  public:
    /// Red, green, blue.
    using Colour = std::array<std::uint8_t, 3>;

    cPalette() = default;
    explicit cPalette(std::vector<Colour> colours) : colours_(std::move(colours)) {}

    /// Replaces the colours by those of a palette file (see `parse_palette`). False, and empty,
    /// when it cannot be read or understood.
    bool LoadFromFile(const std::filesystem::path& file);

    int Count() const { return static_cast<int>(colours_.size()); }
    /// Channels of entry `iIndex`, 1 to `Count`; `std::out_of_range` otherwise.
    int Red(int iIndex) const { return entry(iIndex)[0]; }
    int Green(int iIndex) const { return entry(iIndex)[1]; }
    int Blue(int iIndex) const { return entry(iIndex)[2]; }

    /// The entry with the smallest sum of channel differences, the lowest index among equals;
    /// 0 when there is none below 765, which is as far as black is from white. Channels 0 to 255.
    int ClosestIndex(int red, int Green, int Blue) const;

    const std::vector<Colour>& colours() const { return colours_; }

  private:
    const Colour& entry(int index) const {
        return colours_.at(static_cast<std::size_t>(index) - 1);
    }
    std::vector<Colour> colours_;
};

/// A palette file's text: every line that single spaces split into exactly three fields is a
/// colour, red, green and blue from 0 to 255; other lines are skipped. A space at a line's end
/// begins one more, empty field. Lines end with LF or CR LF. Throws `FileError` naming the line
/// whose three fields are no colour.
cPalette parse_palette(std::string_view text);

/// The palette in `file`. Throws `FileError` with the cause.
cPalette read_palette(const std::filesystem::path& file);

} // namespace kelvane
