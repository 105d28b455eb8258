// The encoding of the settings file.
#pragma once

#include <filesystem>
#include <string>

namespace kelvane {

/// Sees to it that `file` can hold `text`: makes a missing file as an empty UTF-16 one, and turns
/// an 8-bit file into UTF-16 when its code page lacks a character of `text`. Whatever fails leaves
/// the file as it was.
void make_room_for(const std::filesystem::path& file, const std::wstring& text);

} // namespace kelvane
