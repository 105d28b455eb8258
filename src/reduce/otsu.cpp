#include "reduce/otsu.h"

#include "process/point_rows.h"

#include <algorithm>
#include <array>
#include <limits>
#include <vector>

namespace kelvane {
namespace {

using Histogram = std::array<std::int32_t, 256>;

// Neighbours are often equal: separate tables avoid that one increment waits for the one before.
class GreyCounter {
  public:
    void add(const std::vector<std::uint8_t>& greys) {
        const std::size_t whole = greys.size() / kTables * kTables;
        for (std::size_t i = 0; i < whole; i += kTables)
            for (std::size_t table = 0; table < kTables; ++table)
                ++tables_[table][greys[i + table]];
        for (std::size_t i = whole; i < greys.size(); ++i)
            ++tables_[0][greys[i]];
    }

    Histogram sum() const {
        Histogram total{};
        for (const Histogram& table : tables_)
            for (std::size_t grey = 0; grey < total.size(); ++grey)
                total[grey] += table[grey];
        return total;
    }

  private:
    static constexpr std::size_t kTables = 4;
    std::array<Histogram, kTables> tables_{};
};

// Limits with equal variance (every one in a gap between two greys) differ by rounding errors
// only: the answer depends on the order of these operations, which is OpenCV's.
int limit_of_largest_variance(const Histogram& counts, double scale) {
    constexpr double kLeastShare = std::numeric_limits<float>::epsilon();
    double mean = 0;
    for (std::size_t grey = 0; grey < counts.size(); ++grey)
        mean += static_cast<double>(grey) * counts[grey];
    mean *= scale;

    double dark_mean = 0, dark_share = 0, largest = 0;
    int limit = 0;
    for (int grey = 0; grey < 256; ++grey) {
        const double share = counts[static_cast<std::size_t>(grey)] * scale;
        dark_mean *= dark_share;
        dark_share += share;
        const double light_share = 1 - dark_share;
        if (std::min(dark_share, light_share) < kLeastShare ||
            std::max(dark_share, light_share) > 1 - kLeastShare)
            continue;
        dark_mean = (dark_mean + grey * share) / dark_share;
        const double light_mean = (mean - dark_share * dark_mean) / light_share;
        const double variance =
            dark_share * light_share * (dark_mean - light_mean) * (dark_mean - light_mean);
        if (variance > largest) {
            largest = variance;
            limit = grey;
        }
    }
    return limit;
}

} // namespace

int OtsuLimit(ConstImageView image, ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    const auto luminance = point_rows().luminance;
    std::vector<std::uint8_t> greys(static_cast<std::size_t>(image.width));
    GreyCounter counter;
    progress.init(image.height - 1);
    for (int y = 0; y < image.height; ++y) {
        luminance(image.row(y), greys.data(), image.width);
        counter.add(greys);
        progress.at(y);
    }
    progress.complete();
    return limit_of_largest_variance(counter.sum(), 1.0 / (image.width * image.height));
}

} // namespace kelvane
