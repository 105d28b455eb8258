// An event receiver that remembers what it was told.
#pragma once

#include "image/progress.h"

#include <vector>

namespace kelvane::test {

struct RecordingObserver : ProgressObserver {
    std::vector<long> maxima;
    std::vector<long> positions;
    std::vector<double> times;

    void InitProgress(long lMax) override { maxima.push_back(lMax); }
    void Progress(long lPosition) override { positions.push_back(lPosition); }
    void Complete(double lTimeMs) override { times.push_back(lTimeMs); }
};

/// from, from + 3, ... to: the byte offsets of the columns between.
inline std::vector<long> columns(long from, long to) {
    std::vector<long> offsets;
    for (long x = from; x <= to; x += 3)
        offsets.push_back(x);
    return offsets;
}

} // namespace kelvane::test
