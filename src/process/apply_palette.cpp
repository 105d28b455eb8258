// The walk is row by row inside strips of columns. It gives the same picture as column by column,
// as long as each pixel adds its left neighbour's error before that of the row before.
#include "base/cpu.h"
#include "process/closest_colour.h"
#include "process/column_strips.h"
#include "process/diffusion.h"
#include "process/palette_band.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <stdexcept>
#include <vector>

namespace kelvane {
namespace {

constexpr int kLeastError = 4;
constexpr int kNoColumn = -1;
static_assert(kNarrowStripPixels <= kBandColumns);

using Error = BandError;
// Blue, green, red as in memory.
using Pixel = std::array<std::uint8_t, 3>;

std::vector<Pixel> memory_order(const cPalette& palette) {
    std::vector<Pixel> pixels;
    // Entry 0 stands for "all equally far": every entry is then the same colour.
    pixels.push_back({});
    for (const cPalette::Colour& colour : palette.colours())
        pixels.push_back({colour[2], colour[1], colour[0]});
    pixels[0] = pixels.at(1);
    return pixels;
}

std::int16_t share(int error, int sixteenths) {
    return static_cast<std::int16_t>(error * sixteenths / 16);
}

class Diffusion {
  public:
    Diffusion(ImageView image, ImageView buffer, const cPalette& palette)
        : image_(image), buffer_(buffer), closest_(palette), entries_(memory_order(palette)),
          right_(static_cast<std::size_t>(image.height)) {
        if (palette.Count() > kBandColours || map_band_ == nullptr) return;
        banded_rows_ = image.height / kBandRows * kBandRows;
        band_palette_.count = palette.Count();
        for (std::size_t i = 0; i < palette.colours().size(); ++i)
            std::copy_n(entries_[i + 1].data(), 3, band_palette_.bgr[i]);
    }

    // `count` pixels from (x, y); strips ascend, rows ascend inside a strip.
    void process_span(int x, int count, int y) {
        if (y == 0) std::fill_n(below_.begin(), count, Error{});
        if (y >= banded_rows_)
            row(x, count, y);
        else if (y % kBandRows == 0)
            band(x, count, y);
    }

  private:
    void band(int x, int count, int y) {
        const int last = image_.width - 1 - x;
        const Band band{image_.pixel(x, y),
                        image_.row_step,
                        buffer_.pixel(x, y),
                        buffer_.row_step,
                        count,
                        {x == 0 ? 0 : kNoColumn, last < count ? last : kNoColumn},
                        &right_[static_cast<std::size_t>(y)],
                        below_.data()};
        map_band_(band_palette_, band);
    }

    void row(int x, int count, int y) {
        Error& right = right_[static_cast<std::size_t>(y)];
        std::uint8_t* pixel = image_.pixel(x, y);
        std::uint8_t* out = buffer_.pixel(x, y);
        for (int i = 0; i < count; ++i, pixel += 3, out += 3) {
            Error& below = below_[static_cast<std::size_t>(i)];
            if (x + i == 0 || x + i == image_.width - 1) right = below = {};
            const Pixel wanted = receive(pixel, right, below);
            const Pixel& entry = map(wanted);
            std::copy_n(entry.data(), 3, pixel);
            std::copy_n(entry.data(), 3, out);
            pass_on(wanted, entry, right, below);
        }
    }

    static Pixel receive(const std::uint8_t* pixel, const Error& right, const Error& below) {
        Pixel received{};
        for (std::size_t i = 0; i < 3; ++i) {
            const int after_left = std::clamp(pixel[i] + right.channel[i], 0, 255);
            received[i] =
                static_cast<std::uint8_t>(std::clamp(after_left + below.channel[i], 0, 255));
        }
        return received;
    }

    const Pixel& map(const Pixel& colour) {
        return entries_[static_cast<std::size_t>(closest_.index(colour[2], colour[1], colour[0]))];
    }

    static void pass_on(const Pixel& wanted, const Pixel& got, Error& right, Error& below) {
        std::array<int, 3> error{};
        for (std::size_t i = 0; i < 3; ++i)
            error[i] = wanted[i] - got[i];
        if (std::abs(error[0]) + std::abs(error[1]) + std::abs(error[2]) < kLeastError) error = {};
        for (std::size_t i = 0; i < 3; ++i) {
            right.channel[i] = share(error[i], 7);
            below.channel[i] = share(error[i], 4);
        }
    }

    const decltype(PaletteBands::map) map_band_ = palette_bands().map;
    ImageView image_;
    ImageView buffer_;
    int banded_rows_ = 0; // rows from the first that go sixteen at a time
    BandPalette band_palette_{};
    ClosestColour closest_;
    std::vector<Pixel> entries_;                    // by index, 1 to Count
    std::vector<Error> right_;                      // from the column before the strip, by row
    std::array<Error, kNarrowStripPixels> below_{}; // from the row before, by column of the strip
};

} // namespace

const PaletteBands kBaselinePaletteBands{nullptr};

const PaletteBands& palette_bands() {
    return fastest(kBaselinePaletteBands, kAvx2PaletteBands);
}

void ApplyPalette(ImageView image, ImageView buffer, const cPalette& palette,
                  ProgressObserver* observer) {
    if (palette.Count() == 0) throw std::invalid_argument("the palette is empty");
    const ProgressReporter progress(observer);
    Diffusion diffusion(image, buffer, palette);
    walk_diffusion(diffusion, image.width, image.height, progress);
}

} // namespace kelvane
