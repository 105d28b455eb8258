// The inner loops of the tone and colour operations, one set for each kind of processor.
#pragma once

#include <cstdint>

namespace kelvane {

/// Each function works on `count` pixels in a row. All sets give the same bytes.
struct PointRows {
    /// Pixels become the grey of their luminance.
    void (*grey)(std::uint8_t* pixels, int count);
    /// The same grey as one byte a pixel.
    void (*luminance)(const std::uint8_t* pixels, std::uint8_t* greys, int count);
    /// One byte a pixel back to three equal ones.
    void (*spread)(const std::uint8_t* greys, std::uint8_t* pixels, int count);
    /// Every byte b becomes 255 - b.
    void (*invert)(std::uint8_t* pixels, int count);
    /// Every byte b becomes b x level / 255, division toward zero; `level` is 0 to 255.
    void (*fade)(std::uint8_t* pixels, int count, int level);
    /// Lightness times `factor`, at most 1.
    void (*lighten)(std::uint8_t* pixels, int count, float factor);
    /// Another hue; pixels of hue 0 take half saturation.
    void (*colourise)(std::uint8_t* pixels, int count, float hue);
};

extern const PointRows kBaselinePointRows;
extern const PointRows kAvx2PointRows;

/// The fastest set this processor may use.
const PointRows& point_rows();

} // namespace kelvane
