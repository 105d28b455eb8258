// What every benchmark works on: a picture of 3200 x 2400, a large one, and OpenCV's view of the
// same bytes.
#pragma once

#include "image/dib_section.h"

#include <opencv2/core.hpp>

#include <cstdint>
#include <random>
#include <stdexcept>

namespace kelvane::bench {

constexpr int kWidth = 3200;
constexpr int kHeight = 2400;
// More than `kQuickPixels`: walked in strips.
constexpr int kLargeWidth = 8000;
constexpr int kLargeHeight = 6000;

inline cDIBSection empty_picture(int width = kWidth, int height = kHeight) {
    cDIBSection picture;
    if (!picture.Create(width, height)) throw std::runtime_error("no memory for a picture");
    return picture;
}

/// Random bytes: the worst case for anything that branches on pixels.
inline cDIBSection random_picture(std::uint32_t seed = 1, int width = kWidth,
                                  int height = kHeight) {
    cDIBSection picture = empty_picture(width, height);
    std::mt19937 random(seed);
    for (int y = 0; y < height; ++y)
        for (int byte = 0; byte < 3 * width; ++byte)
            picture.view().row(y)[byte] = static_cast<std::uint8_t>(random());
    return picture;
}

/// OpenCV on the same memory, on one thread like ours.
inline cv::Mat as_mat(cDIBSection& picture) {
    cv::setNumThreads(1);
    return {picture.Height(), picture.Width(), CV_8UC3, picture.DIBSectionBitsPtr(),
            static_cast<std::size_t>(picture.BytesPerScanLine())};
}

} // namespace kelvane::bench
