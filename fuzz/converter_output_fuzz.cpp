// What a converter may print, read as its list of formats and as its report on pictures.
#include "convert/format_list.h"
#include "convert/verbose_output.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace kelvane {
namespace {

void require(bool sound, const char* fault) {
    if (sound) return;
    std::fputs(fault, stderr);
    std::abort();
}

// An open dialog takes the filter apart at its bars and ends it at a zero.
void check_filter(const std::vector<PictureFormat>& formats) {
    const std::wstring filter = open_filter(formats, L"All Files (*.*)|*.*");
    const auto readable = std::ranges::count(formats, true, &PictureFormat::readable);
    require(std::ranges::count(filter, L'|') == 2 * readable + 1, "an entry of the filter is torn");
    require(filter.find(L'\0') == std::wstring::npos, "the filter ends early");
}

void check_sizes(const std::wstring& text) {
    for (const auto& [number, size] : written_sizes(text, L"tmp_blt"))
        require(number >= 0 && size.width >= 0 && size.height >= 0, "a number below 0");
}

} // namespace
} // namespace kelvane

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace kelvane;
    const std::wstring text(data, data + size);
    const std::vector<PictureFormat> formats = parse_format_list(text);
    for (const PictureFormat& format : formats)
        can_hold_several(formats, L"." + format.name);
    check_filter(formats);
    check_sizes(text);
    return 0;
}
