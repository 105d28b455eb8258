// What "convert -list format" prints, as a table.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelvane {

/// A kind of picture file that the converter knows.
struct PictureFormat {
    std::wstring name; ///< letters, digits, "-" and "_": "JPEG"; in lower case its files' extension
    bool readable;
    bool several_images; ///< its files can hold more than one
    std::wstring description;
};

/// The formats in the order in which they are printed, from ImageMagick 6 and 7, with or without
/// a column of modules. Other lines (continued descriptions, the legend) are skipped. Empty for
/// text that is no such list.
std::vector<PictureFormat> parse_format_list(std::wstring_view output);

/// The filter of an open dialog: "NAME - description|*.name|" for each readable format, then
/// `all_files`, a pair of the same kind. A ":" in a description becomes "-".
std::wstring open_filter(const std::vector<PictureFormat>& formats, std::wstring_view all_files);

/// Whether files with this extension (".gif", in any capitals) can hold several images. ".tif" is
/// ".tiff", which alone is in the list.
bool can_hold_several(const std::vector<PictureFormat>& formats, std::wstring_view extension);

} // namespace kelvane
