// Row by row through strips of columns gives the same picture as column by column, as long as each
// pixel takes its errors in the order they would arrive: from the left neighbour of the row before,
// from the left, from the row before. The errors depend on the pixel's value alone, so only the
// values of the row before and of the column before the strip are kept.
#include "process/column_strips.h"
#include "process/diffusion.h"
#include "process/point_rows.h"

#include <algorithm>
#include <array>
#include <vector>

namespace kelvane {
namespace {

constexpr int kFirstWhite = 129;
constexpr int kFirstWithError = 17;
constexpr std::uint8_t kNoError = 0; // a value that passes nothing on

// What a pixel of each value passes on, divisions toward zero.
struct Shares {
    std::array<int, 256> right;
    std::array<int, 256> below;
    std::array<int, 256> below_right;
};

Shares make_shares() {
    Shares shares{};
    for (std::size_t i = 0; i < 256; ++i) {
        const int value = static_cast<int>(i);
        const int error = value < kFirstWithError ? 0 : (value < kFirstWhite ? value : 127 - value);
        shares.right[i] = error * 7 / 16;
        shares.below[i] = error * 5 / 16;
        shares.below_right[i] = error * 1 / 16;
    }
    return shares;
}

int clamped(int value) {
    return std::clamp(value, 0, 255);
}

class Diffusion {
  public:
    Diffusion(ImageView image, ImageView buffer)
        : image_(image), buffer_(buffer), left_(static_cast<std::size_t>(image.height)) {}

    // `count` pixels from (x, y); strips ascend, rows ascend inside a strip.
    void process_span(int x, int count, int y) {
        rows_.luminance(image_.pixel(x, y), greys_.data(), count);
        if (y == 0) {
            std::fill_n(values_.begin(), count, kNoError);
            corner_ = kNoError;
        }
        std::uint8_t& left = left_[static_cast<std::size_t>(y)];
        const std::uint8_t next_corner = left;
        if (x == 0)
            from_first_column(std::min(count, image_.width - 1), left);
        else
            diffuse(0, std::min(count, image_.width - 1 - x), corner_, left);
        if (x + count == image_.width) values_[index(count - 1)] = greys_[index(count - 1)];
        left = values_[index(count - 1)];
        corner_ = next_corner;
        write(x, count, y);
    }

  private:
    static std::size_t index(int i) { return static_cast<std::size_t>(i); }

    // The first column receives no errors.
    void from_first_column(int end, std::uint8_t left) {
        const std::uint8_t above = values_[0];
        left = values_[0] = greys_[0];
        diffuse(1, end, above, left);
    }

    // Turns values_ from those of the row before into this row's; `above_left` and `left` are the
    // values beside pixel `first`.
    void diffuse(int first, int end, std::uint8_t above_left, std::uint8_t left) {
        for (std::size_t i = index(first); i < index(std::max(end, first)); ++i) {
            const int below = shares_.below[values_[i]];
            const int start = clamped(greys_[i] + shares_.below_right[above_left]);
            above_left = values_[i];
            // clamped(clamped(start + right) + below) with few steps after `left` is known
            const int lowest = std::max(below, 0);
            const int highest = std::min(255 + below, 255);
            left = static_cast<std::uint8_t>(
                std::clamp(start + below + shares_.right[left], lowest, highest));
            values_[i] = left;
        }
    }

    void write(int x, int count, int y) {
        for (std::size_t i = 0; i < index(count); ++i)
            greys_[i] = values_[i] < kFirstWhite ? 0 : 255;
        rows_.spread(greys_.data(), image_.pixel(x, y), count);
        rows_.spread(greys_.data(), buffer_.pixel(x, y), count);
    }

    const PointRows& rows_ = point_rows();
    const Shares shares_ = make_shares();
    ImageView image_;
    ImageView buffer_;
    std::vector<std::uint8_t> left_;                        // the column before the strip
    std::uint8_t corner_ = kNoError;                        // left of the strip, one row before
    std::array<std::uint8_t, kNarrowStripPixels> values_{}; // the strip's row before
    std::array<std::uint8_t, kNarrowStripPixels> greys_{};
};

} // namespace

void Steinberg(ImageView image, ImageView buffer, ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    report_all_columns(image.width, ProgressReporter(observer)); // those of GrayScale
    Diffusion diffusion(image, buffer);
    walk_diffusion(diffusion, image.width, image.height, progress);
}

} // namespace kelvane
