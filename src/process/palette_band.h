// Mapping onto a small palette, sixteen rows at once.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kelvane {

inline constexpr int kBandRows = 16;
inline constexpr int kBandColours = 16;
inline constexpr int kBandColumns = 1024;

/// 1 to `kBandColours` entries, blue, green, red; the fourth byte is 0.
struct BandPalette {
    int count;
    std::uint8_t bgr[kBandColours][4];
};

/// What a pixel passes on: blue, green, red.
struct BandError {
    std::int16_t channel[3];
};

/// `kBandRows` rows of a strip of `count` columns, at most `kBandColumns`.
struct Band {
    std::uint8_t* image; // first pixel of the lowest row
    std::ptrdiff_t image_step;
    std::uint8_t* buffer;
    std::ptrdiff_t buffer_step;
    int count;
    // Columns of the strip that receive no errors; a number outside for none.
    int bare[2];
    // Errors: by row from the column before, by column from the row before.
    // Afterwards those that this band passes on.
    BandError* right;
    BandError* below;
};

/// One set for each kind of processor.
struct PaletteBands {
    /// Maps the band, see `ApplyPalette`. Null where the processor has nothing for it.
    void (*map)(const BandPalette& palette, const Band& band);
};

extern const PaletteBands kBaselinePaletteBands;
extern const PaletteBands kAvx2PaletteBands;

/// The fastest set this processor may use.
const PaletteBands& palette_bands();

} // namespace kelvane
