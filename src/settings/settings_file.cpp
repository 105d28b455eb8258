#include "settings/settings_file.h"

#include "settings/folders.h"
#include "settings/text_file.h"

#include <windows.h>

#include <string_view>
#include <utility>

namespace kelvane {
namespace {

bool is_blank(wchar_t c) {
    return c == L' ' || c == L'\t';
}

// The platform strips blanks and one pair of quotation marks from what it reads, so a value that
// has them at its ends gets a pair to lose.
bool needs_quotes(std::wstring_view value) {
    if (value.empty()) return false;
    const wchar_t first = value.front();
    const wchar_t last = value.back();
    return is_blank(first) || is_blank(last) || first == L'"' || first == L'\'';
}

std::wstring as_stored(std::wstring_view value) {
    const std::wstring line(value.substr(0, value.find_first_of(std::wstring_view(L"\r\n\0", 3))));
    return needs_quotes(line) ? L'"' + line + L'"' : line;
}

} // namespace

SettingsFile::SettingsFile(std::filesystem::path file) : file_(std::move(file)) {}

SettingsFile SettingsFile::of_program() {
    return SettingsFile(std::filesystem::path(program_folder()) / L"kelvane.ini");
}

std::wstring SettingsFile::ReadIniValue(const std::wstring& section, const std::wstring& key,
                                        std::size_t longest) const {
    std::wstring value(longest + 1, L'\0'); // the platform ends what it writes with a zero
    value.resize(GetPrivateProfileStringW(section.c_str(), key.c_str(), L"", value.data(),
                                          static_cast<DWORD>(value.size()), file_.c_str()));
    return value;
}

bool SettingsFile::WriteIniValue(const std::wstring& section, const std::wstring& key,
                                 const std::wstring& value) const {
    const std::wstring stored = as_stored(value);
    make_room_for(file_, stored);
    return WritePrivateProfileStringW(section.c_str(), key.c_str(), stored.c_str(),
                                      file_.c_str()) != FALSE;
}

bool SettingsFile::DeleteIniSection(const std::wstring& section) const {
    return WritePrivateProfileStringW(section.c_str(), nullptr, nullptr, file_.c_str()) != FALSE;
}

} // namespace kelvane
