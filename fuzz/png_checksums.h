// Changed PNG files keep valid checksums; decoders would look no further into most of them.
#pragma once

#include "image/byte_numbers.h"

#include <zlib.h>

namespace kelvane {

/// Sets the checksum of every chunk when `file` is a PNG file.
inline void set_png_checksums(std::span<std::uint8_t> file) {
    if (!begins_with(file, "\x89PNG")) return;
    for (std::size_t at = 8; holds(file, at, 12);) {
        const std::size_t length = number_at(file, at, 4, ByteOrder::Big);
        if (!holds(file, at + 12, length)) return;
        const uLong sum = crc32(0, &file[at + 4], static_cast<uInt>(length + 4));
        for (std::size_t i = 0; i < 4; ++i)
            file[at + 8 + length + i] = static_cast<std::uint8_t>(sum >> (24 - 8 * i));
        at += 12 + length;
    }
}

} // namespace kelvane
