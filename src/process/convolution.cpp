#include "process/convolution.h"

namespace kelvane {
namespace {

std::uint8_t channel_sum(ConstImageView from, int byte, int y, const FilterKernel& kernel) {
    std::uint32_t sum = 0;
    for (int j = -kernel.half(); j <= kernel.half(); ++j)
        for (int i = -kernel.half(); i <= kernel.half(); ++i)
            sum += static_cast<std::uint32_t>(kernel.cell(i, j)) * from.row(y + j)[byte + 3 * i];
    const std::int64_t quotient = std::int64_t{static_cast<std::int32_t>(sum)} / kernel.weight();
    return static_cast<std::uint8_t>(quotient < 0 ? 0 : quotient > 255 ? 255 : quotient);
}

} // namespace

void convolve(ConstImageView from, ImageView to, const FilterKernel& kernel,
              ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    const int half = kernel.half();
    const int last = 3 * from.width - 3 * half - 3;
    progress.init(last);
    for (int x = 3 * half; x <= last; x += 3) {
        for (int y = half; y < from.height - half; ++y)
            for (int byte = x; byte < x + 3; ++byte)
                to.row(y)[byte] = channel_sum(from, byte, y, kernel);
        progress.at(x);
    }
    progress.complete();
}

} // namespace kelvane
