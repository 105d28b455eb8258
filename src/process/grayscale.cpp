#include "process/grayscale.h"

namespace kelvane {
namespace {

// The sum is at most 255000; a remainder of exactly one half rounds to the even neighbour.
std::uint8_t luminance(const std::uint8_t* pixel) {
    const unsigned sum = 222u * pixel[2] + 707u * pixel[1] + 71u * pixel[0];
    const unsigned whole = sum / 1000;
    const unsigned rest = sum % 1000;
    return static_cast<std::uint8_t>(whole + (rest > 500 || (rest == 500 && whole % 2 == 1)));
}

} // namespace

void GrayScale(ImageView image, ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    progress.init(3L * image.width - 3);
    for (int y = 0; y < image.height; ++y) {
        std::uint8_t* pixel = image.row(y);
        for (int x = 0; x < image.width; ++x, pixel += 3)
            pixel[0] = pixel[1] = pixel[2] = luminance(pixel);
    }
    for (long x = 0; x < image.width; ++x)
        progress.at(3 * x);
    progress.complete();
}

} // namespace kelvane
