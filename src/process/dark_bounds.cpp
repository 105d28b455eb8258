#include "process/dark_bounds.h"

#include "process/point_rows.h"

#include <algorithm>
#include <vector>

namespace kelvane {
namespace {

// A plain loop, because compilers vectorize it and not std::min_element.
std::uint8_t darkest(const std::vector<std::uint8_t>& greys) {
    std::uint8_t least = 255;
    for (const std::uint8_t grey : greys)
        least = std::min(least, grey);
    return least;
}

} // namespace

std::optional<PixelRect> DarkBounds(ConstImageView image, int limit, ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    const auto luminance = point_rows().luminance;
    std::vector<std::uint8_t> greys(static_cast<std::size_t>(image.width));
    const auto dark = [&](int x) { return greys[static_cast<std::size_t>(x)] <= limit; };
    int left = image.width, right = -1; // columns
    int bottom = -1, top = -1;          // memory rows
    progress.init(image.height - 1);
    for (int y = 0; y < image.height; ++y) {
        luminance(image.row(y), greys.data(), image.width);
        if (darkest(greys) <= limit) {
            if (bottom < 0) bottom = y;
            top = y;
            for (int x = 0; x < left; ++x)
                if (dark(x)) left = x;
            for (int x = image.width - 1; x > right; --x)
                if (dark(x)) right = x;
        }
        progress.at(y);
    }
    progress.complete();
    if (bottom < 0) return std::nullopt;
    return PixelRect{left, image.height - 1 - top, right - left + 1, top - bottom + 1};
}

} // namespace kelvane
