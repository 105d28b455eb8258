#include "process/rank.h"

#include <algorithm>

namespace kelvane {
namespace {

std::uint8_t rank_of_nine(ConstImageView from, int byte, int y, Rank rank) {
    int sum = 0;
    std::uint8_t low = 255;
    std::uint8_t high = 0;
    for (int j = -1; j <= 1; ++j)
        for (int i = -3; i <= 3; i += 3) {
            const std::uint8_t value = from.row(y + j)[byte + i];
            sum += value;
            low = std::min(low, value);
            high = std::max(high, value);
        }
    if (rank == Rank::Mean) return static_cast<std::uint8_t>(sum / 9);
    return rank == Rank::Minimum ? low : high;
}

} // namespace

void rank_filter(ConstImageView from, ImageView to, Rank rank, ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    const int last = 3 * from.width - 6;
    progress.init(last);
    for (int x = 3; x <= last; x += 3) {
        for (int y = 1; y < from.height - 1; ++y)
            for (int byte = x; byte < x + 3; ++byte)
                to.row(y)[byte] = rank_of_nine(from, byte, y, rank);
        progress.at(x);
    }
    progress.complete();
}

} // namespace kelvane
