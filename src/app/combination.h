// What the combination of two pictures is asked to do.
#pragma once

#include "image/dib_section.h"

#include <array>

namespace kelvane {

/// The combination dialog's answer, with the pictures that it chose among.
struct Combination {
    /// By the engine's operation: `kLightest` is `AddLightest`, which keeps the darker pixel.
    enum Type { kAdd = 1, kLightest = 2, kDarkest = 3 };
    /// One picture's part in a weighted sum: a byte counts (byte + offset) x multiplier.
    struct Part {
        int multiplier = 1;
        int offset_r = 0;
        int offset_g = 0;
        int offset_b = 0;
    };

    Type type = kAdd;
    /// First and second picture; they belong to other documents.
    std::array<const cDIBSection*, 2> sources{};
    /// Of the result, in pixels.
    int width = 0;
    int height = 0;
    /// For `kAdd`.
    std::array<Part, 2> parts{};
};

} // namespace kelvane
