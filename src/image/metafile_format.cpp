#include "image/metafile_format.h"

namespace kelvane {
namespace {

constexpr std::size_t kPlaceableHeader = 22;

bool is_enhanced(Bytes file) {
    return number_at(file, 0, 4) == 1 && begins_with(bytes_from(file, 40), " EMF");
}

bool is_placeable(Bytes file) {
    return begins_with(file, "\xD7\xCD\xC6\x9A");
}

// The header of a metafile in memory or of one on disk, which are the same.
bool is_plain(Bytes file) {
    const std::uint32_t type = number_at(file, 0, 2);
    const std::uint32_t version = number_at(file, 4, 2);
    return (type == 1 || type == 2) && number_at(file, 2, 2) == 9 &&
           (version == 0x100 || version == 0x300);
}

// Records begin with their type and length.
bool enhanced_is_complete(Bytes file) {
    constexpr std::uint32_t kEnd = 14;
    for (std::size_t at = 0; holds(file, at, 8);) {
        const std::size_t length = number_at(file, at + 4, 4);
        if (length < 8 || !holds(file, at, length)) return false;
        if (number_at(file, at, 4) == kEnd) return true;
        at += length;
    }
    return false;
}

// Records begin with their length in words of two bytes; the last one has function 0.
bool plain_is_complete(Bytes file) {
    constexpr std::size_t kHeader = 18;
    for (std::size_t at = kHeader; holds(file, at, 6);) {
        const std::size_t words = number_at(file, at, 4);
        if (words < 3 || !holds(file, at, std::uint64_t{words} * 2)) return false;
        if (number_at(file, at + 4, 2) == 0) return true;
        at += words * 2;
    }
    return false;
}

} // namespace

bool is_metafile(Bytes file_bytes) {
    return is_enhanced(file_bytes) || is_placeable(file_bytes) || is_plain(file_bytes);
}

Completeness metafile_completeness(Bytes file_bytes) {
    if (is_enhanced(file_bytes)) return complete_if(enhanced_is_complete(file_bytes));
    const Bytes plain =
        is_placeable(file_bytes) ? bytes_from(file_bytes, kPlaceableHeader) : file_bytes;
    return complete_if(is_plain(plain) && plain_is_complete(plain));
}

} // namespace kelvane
