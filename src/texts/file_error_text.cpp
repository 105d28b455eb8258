#include "texts/file_error_text.h"

#include "base/text.h"
#include "texts/string_table.h"

#include "ids.h"

#include <iterator>

namespace kelvane {
namespace {

// In the order of the faults.
constexpr int kTexts[] = {
    0,
    IDS_FILE_NOT_FOUND,
    IDS_FILE_NO_ACCESS,
    IDS_FILE_NO_SPACE,
    IDS_FILE_IS_FOLDER,
    IDS_FILE_UNREADABLE,
    IDS_FILE_UNWRITABLE,
    IDS_FILE_OVER_2_GB,
    IDS_FILE_EMPTY,
    IDS_FILE_DAMAGED,
    IDS_FILE_UNKNOWN_FORMAT,
    IDS_FILE_NO_PICTURE,
    IDS_FILE_NO_PIXELS,
    IDS_FILE_TOO_LARGE,
    IDS_FILE_TOO_LARGE_FOR_BITMAP,
    IDS_FILE_NO_MEMORY,
    IDS_FILE_NO_COLOUR,
};
static_assert(std::size(kTexts) == kFileFaults);

} // namespace

std::wstring file_error_text(const FileError& error) {
    if (error.fault() == FileFault::Other) return wide_text(error.what());
    return LoadString(kTexts[static_cast<std::size_t>(error.fault())], {wide_text(error.detail())});
}

} // namespace kelvane
