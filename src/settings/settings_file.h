// The file in which the program remembers choices: an ordinary Windows private-profile (.ini) file.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

namespace kelvane {

/// Longest value that is read whole, in UTF-16 units.
inline constexpr std::size_t kLongestValue = 254;
/// The same for a value that is a path: a path cut short would name nothing, or another file.
inline constexpr std::size_t kLongestPath = 32767;

/// Access to one settings file. No function throws: a file that is missing, locked, read-only, a
/// folder or damaged reads as empty, and what is written to it is lost. Unknown entries of the file
/// stay as they are.
///
/// Every value of any script survives: a new file is made as UTF-16, and the 8-bit file of an
/// older installation is turned into UTF-16 the first time a value does not fit its code page.
class SettingsFile {
  public:
    /// `file`: full path; the platform would look for a bare name in the Windows folder.
    explicit SettingsFile(std::filesystem::path file);
    /// "kelvane.ini" beside the running program.
    static SettingsFile of_program();

    const std::filesystem::path& file() const { return file_; }

    /// One value, cut to `longest` units; empty when the key or the file is missing.
    std::wstring ReadIniValue(const std::wstring& section, const std::wstring& key,
                              std::size_t longest = kLongestValue) const;
    /// Writes one value, making file, section and key as needed; false when that failed. A line
    /// break would start a line of its own in the file, so the value ends at the first one.
    bool WriteIniValue(const std::wstring& section, const std::wstring& key,
                       const std::wstring& value) const;
    /// Removes a section with all its keys.
    bool DeleteIniSection(const std::wstring& section) const;

  private:
    std::filesystem::path file_;
};

} // namespace kelvane
