// What the converter prints with "-verbose" about the pictures it writes.
#pragma once

#include <map>
#include <string_view>

namespace kelvane {

/// Width and height in pixels.
struct PictureSize {
    int width = 0;
    int height = 0;
};

/// The sizes of the pictures that were written as `stem` followed by a number and ".jpg", by that
/// number. A line of the output tells of one: "in.tif=>STEM002.jpg[2] TIFF 64x48 ...".
std::map<int, PictureSize> written_sizes(std::wstring_view output, std::wstring_view stem);

} // namespace kelvane
