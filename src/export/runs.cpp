#include "export/runs.h"

#include "export/row_bits.h"

#include <algorithm>

namespace kelvane {

RunList RunList::extract(ConstImageView image, ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    progress.init(3L * image.width - 3);
    RunList list;
    list.row_begin_.reserve(static_cast<std::size_t>(image.height) + 1);
    list.row_begin_.push_back(0);
    for (int y = 0; y < image.height; ++y) {
        const auto dark_word = [&](int word) {
            return dark_bits(image.pixel(64 * word, y), std::min(64, image.width - 64 * word));
        };
        append_runs_of_row(image.width, dark_word, list.runs_);
        if (y == 0 && !list.runs_.empty() && is_lost(list.runs_.front().begin))
            list.runs_.erase(list.runs_.begin());
        list.row_begin_.push_back(list.size());
        progress.at(y);
    }
    return list;
}

std::uint64_t RunList::dark_pixels() const {
    std::uint64_t sum = 0;
    for (const Run& run : runs_)
        sum += static_cast<std::uint64_t>(run.end - run.begin);
    return sum;
}

} // namespace kelvane
