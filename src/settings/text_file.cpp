// The platform's private-profile calls keep a file in the encoding it has: UTF-16 when it begins
// with a byte order mark, else the system's 8-bit code page, in which characters it lacks become
// question marks. They never choose UTF-16 by themselves, so that is done here.
#include "settings/text_file.h"

#include "base/file_bytes.h"
#include "base/file_error.h"
#include "base/safe_file.h"
#include "win/unique_handle.h"

#include <windows.h>

#include <cstdint>
#include <string_view>
#include <vector>

namespace kelvane {
namespace {

constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

// Far above the size of any settings file; a larger file is not rewritten.
constexpr std::uintmax_t kLargestFile = 1 << 20;

std::wstring from_code_page(std::string_view bytes, DWORD flags) {
    const int size = static_cast<int>(bytes.size());
    std::wstring text(bytes.size(), L'\0');
    text.resize(MultiByteToWideChar(CP_ACP, flags, bytes.data(), size, text.data(), size));
    return text;
}

bool fits_code_page(const std::wstring& text) {
    const int size = static_cast<int>(text.size());
    std::string bytes(text.size() * 4, '\0');
    bytes.resize(WideCharToMultiByte(CP_ACP, 0, text.data(), size, bytes.data(),
                                     static_cast<int>(bytes.size()), nullptr, nullptr));
    return from_code_page(bytes, 0) == text;
}

void create_utf16(const std::filesystem::path& file) {
    const UniqueHandle handle(CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                          FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!handle) return; // it exists, or there is no write access to the folder
    DWORD written = 0;
    WriteFile(handle.get(), kUtf16Mark.data(), static_cast<DWORD>(kUtf16Mark.size()), &written,
              nullptr);
}

// Makes the platform write back and drop its cached copy of the file.
void forget_cached(const std::filesystem::path& file) {
    WritePrivateProfileStringW(nullptr, nullptr, nullptr, file.c_str());
}

void turn_into_utf16(const std::filesystem::path& file) {
    forget_cached(file);
    const std::vector<std::uint8_t> raw = read_file_bytes(file);
    const std::string_view bytes(reinterpret_cast<const char*>(raw.data()), raw.size());
    if (bytes.starts_with(kUtf16Mark) || bytes.starts_with(kUtf8Mark)) return;
    const std::wstring text = from_code_page(bytes, MB_ERR_INVALID_CHARS);
    if (text.empty() && !bytes.empty()) return; // not text of this system's code page
    SafeFile out(file);
    out.write(kUtf16Mark);
    out.write({reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)});
    out.commit();
    forget_cached(file);
}

} // namespace

void make_room_for(const std::filesystem::path& file, const std::wstring& text) {
    create_utf16(file);
    if (fits_code_page(text)) return;
    std::error_code error;
    if (std::filesystem::file_size(file, error) > kLargestFile || error) return;
    try {
        turn_into_utf16(file);
    } catch (const FileError&) { // the write that follows fails as well, or loses characters
    }
}

} // namespace kelvane
