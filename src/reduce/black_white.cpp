#include "reduce/black_white.h"

#include "process/grayscale.h"

#include <cstring>

namespace kelvane {

void BlackAndWhite2(ImageView source, ImageView destination, int limit,
                    ProgressObserver* observer) {
    GrayScale(source, observer);
    const ProgressReporter progress(observer);
    progress.init(3L * source.width - 3);
    for (int y = 0; y < source.height; ++y) {
        const std::uint8_t* from = source.row(y);
        std::uint8_t* to = destination.row(y);
        for (int x = 0; x < source.width; ++x, from += 3, to += 3)
            std::memset(to, *from <= limit ? 0 : 255, 3);
    }
    for (long x = 0; x < source.width; ++x)
        progress.at(3 * x);
    if (source.bits != destination.bits) copy_pixels(destination, source);
    progress.complete();
}

} // namespace kelvane
