#include "convert/conversion.h"

#include "convert/verbose_output.h"
#include "win/names.h"
#include "win/platform_error.h"

#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <cwctype>
#include <map>
#include <optional>
#include <random>

namespace kelvane {
namespace {

constexpr const wchar_t* kCopy = L"testtmp"; // a number follows
constexpr const wchar_t* kPicture = L"tmp_blt";
constexpr const wchar_t* kPreview = L"tmp_tblt";
constexpr std::size_t kLongestExtension = 16;
constexpr std::size_t kLongestReport = 8000; // characters
constexpr std::size_t kPreviewsAtOnce = 50;  // the converter holds as many in memory

// Files of the converter's own script language: they may tell it to write anywhere.
constexpr const wchar_t* kScript = L".msl";

// 64 bits from the system's generator.
std::wstring unguessable_number() {
    std::random_device random;
    return std::to_wstring((std::uint64_t{random()} << 32) | random());
}

// The extension tells the converter the format. It is dropped, so that the converter detects the
// format by content, if it marks a script or has characters that no format's name has.
std::wstring harmless_extension(const std::filesystem::path& file) {
    std::wstring extension = file.extension().wstring();
    const bool harmless = extension.size() <= kLongestExtension &&
                          std::all_of(extension.begin() + !extension.empty(), extension.end(),
                                      [](wchar_t c) { return c < 128 && std::iswalnum(c); });
    const bool script = win::compare_names(extension, kScript) == 0;
    return harmless && !script ? extension : std::wstring();
}

std::wstring numbered(const wchar_t* stem, std::size_t number, const wchar_t* extension) {
    std::wstring digits = std::to_wstring(number);
    if (digits.size() < 3) digits.insert(0, 3 - digits.size(), L'0');
    return stem + digits + extension;
}

// The number of "tmp_blt012.jpg"; nothing for other files.
std::optional<int> picture_number(const std::filesystem::path& file) {
    std::wstring name = file.stem().wstring();
    if (file.extension() != L".jpg" || !name.starts_with(kPicture)) return std::nullopt;
    name.erase(0, std::wstring_view(kPicture).size());
    if (name.empty() || name.size() > 9 || !std::ranges::all_of(name, std::iswdigit))
        return std::nullopt;
    return std::stoi(name);
}

// The end of a long text: the error that stopped the converter comes last.
std::wstring report_of(std::wstring output) {
    constexpr const wchar_t* kBlanks = L" \t\r\n";
    output.erase(output.find_last_not_of(kBlanks) + 1);
    output.erase(0, std::min(output.find_first_not_of(kBlanks), output.size()));
    if (output.size() > kLongestReport) output.erase(0, output.size() - kLongestReport);
    return output;
}

DWORD CALLBACK copy_on(LARGE_INTEGER, LARGE_INTEGER, LARGE_INTEGER, LARGE_INTEGER, DWORD, DWORD,
                       HANDLE, HANDLE, void* keep_waiting) {
    const auto& asked = *static_cast<const KeepWaiting*>(keep_waiting);
    return !asked || asked() ? PROGRESS_CONTINUE : PROGRESS_CANCEL;
}

} // namespace

Conversion::Conversion(const Converter& converter, const std::filesystem::path& source,
                       KeepWaiting keep_waiting)
    : converter_(converter), keep_waiting_(std::move(keep_waiting)) {
    const std::wstring copy = kCopy + unguessable_number() + harmless_extension(source);
    take_copy(source, copy);
    // Without "-alpha remove" transparent parts would show the colour stored in them. JPEG's usual
    // quality and sampling factor blur the edges of lettering.
    const std::wstring params = L"-verbose " + copy +
                                L" -alpha remove -quality 100 -sampling-factor 1x1 " + kPicture +
                                L"%03d.jpg";
    std::wstring output = run(params);
    find_images(output);
    if (images_.empty() && converter_.does_everything()) {
        output = run(L"convert " + params);
        find_images(output);
    }
    if (images_.empty()) throw ConversionFailed(report_of(output));
}

void Conversion::take_copy(const std::filesystem::path& source, const std::wstring& name) const {
    const std::filesystem::path copy = folder_ / name;
    if (!CopyFileExW(source.c_str(), copy.c_str(), copy_on,
                     const_cast<KeepWaiting*>(&keep_waiting_), nullptr, COPY_FILE_FAIL_IF_EXISTS)) {
        const DWORD error = GetLastError();
        if (error == ERROR_REQUEST_ABORTED) throw ConverterCancelled();
        throw PlatformError(error);
    }
    // A write-protected copy could not be removed.
    SetFileAttributesW(copy.c_str(), FILE_ATTRIBUTE_NORMAL);
}

std::wstring Conversion::run(const std::wstring& params) const {
    return converter_.convert(params, folder_, keep_waiting_);
}

void Conversion::find_images(const std::wstring& output) {
    std::map<int, std::filesystem::path> pictures; // in the order of their numbers, not of names
    for (const auto& entry : std::filesystem::directory_iterator(folder_.path()))
        if (const auto number = picture_number(entry.path())) pictures[*number] = entry.path();
    auto sizes = written_sizes(output, kPicture);
    for (const auto& [number, picture] : pictures) {
        const PictureSize size = sizes[number];
        images_.push_back({picture, folder_ / numbered(kPreview, images_.size(), L".bmp"),
                           size.width, size.height});
    }
}

void Conversion::make_previews(const std::function<void(long done)>& progress) const {
    for (std::size_t from = 0; from < images_.size(); from += kPreviewsAtOnce) {
        const std::size_t to = std::min(from + kPreviewsAtOnce, images_.size());
        std::wstring params = L"-verbose -size 200x200 -scene " + std::to_wstring(from);
        // Named one by one: a pattern would bring number 1000 before 101.
        for (std::size_t i = from; i < to; ++i)
            params += L' ' + images_[i].picture.filename().wstring();
        run(params + L" -resize 200x200 " + kPreview + L"%03d.bmp");
        progress(static_cast<long>(to));
    }
}

} // namespace kelvane
