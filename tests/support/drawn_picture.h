// Black-and-white pictures from drawings in the test's source.
#pragma once

#include "image/dib_section.h"

#include <initializer_list>
#include <string_view>

namespace kelvane::test {

/// '#' is a dark pixel, anything else white; the first line is the top row.
inline cDIBSection drawn(std::initializer_list<std::string_view> lines) {
    cDIBSection picture;
    const int height = static_cast<int>(lines.size());
    if (height == 0 || !picture.Create(static_cast<int>(lines.begin()->size()), height))
        return picture;
    int y = height;
    for (const std::string_view line : lines) {
        --y;
        for (int x = 0; x < picture.Width(); ++x) {
            const std::uint8_t value = line[static_cast<std::size_t>(x)] == '#' ? 0 : 255;
            for (int channel = 0; channel < 3; ++channel)
                picture.view().pixel(x, y)[channel] = value;
        }
    }
    return picture;
}

} // namespace kelvane::test
