// Slow, obvious versions of the filters: columns outside, rows inside, one pixel at a time.
#pragma once

#include "image/dib_section.h"
#include "process/filter_kernel.h"
#include "process/rank.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace kelvane::test {

inline std::uint8_t clamped(std::int64_t value) {
    return static_cast<std::uint8_t>(std::clamp<std::int64_t>(value, 0, 255));
}

inline cDIBSection convolved(const cDIBSection& picture, const FilterKernel& kernel) {
    cDIBSection result = picture.Copy();
    const int h = kernel.half();
    for (int x = 3 * h; x <= 3 * picture.Width() - 3 * h - 3; x += 3)
        for (int y = h; y < picture.Height() - h; ++y)
            for (int channel = 0; channel < 3; ++channel) {
                std::int64_t sum = 0;
                for (int i = -h; i <= h; ++i)
                    for (int j = -h; j <= h; ++j)
                        sum += std::int64_t{picture.view().row(y + j)[x + 3 * i + channel]} *
                               kernel.cell(i, j);
                const std::int64_t wrapped = static_cast<std::int32_t>(sum);
                result.view().row(y)[x + channel] = clamped(wrapped / kernel.weight());
            }
    return result;
}

inline cDIBSection ranked(const cDIBSection& picture, Rank rank) {
    cDIBSection result = picture.Copy();
    for (int x = 1; x < picture.Width() - 1; ++x)
        for (int y = 1; y < picture.Height() - 1; ++y)
            for (int channel = 0; channel < 3; ++channel) {
                std::vector<int> nine;
                int sum = 0;
                for (int i = -1; i <= 1; ++i)
                    for (int j = -1; j <= 1; ++j) {
                        nine.push_back(picture.view().pixel(x + i, y + j)[channel]);
                        sum += nine.back();
                    }
                const auto [low, high] = std::minmax_element(nine.begin(), nine.end());
                result.view().pixel(x, y)[channel] = clamped(rank == Rank::Mean      ? sum / 9
                                                             : rank == Rank::Minimum ? *low
                                                                                     : *high);
            }
    return result;
}

} // namespace kelvane::test
