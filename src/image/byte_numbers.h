// Numbers and signatures in the bytes of a file.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace kelvane {

using Bytes = std::span<const std::uint8_t>;

enum class ByteOrder { Little, Big };

inline bool begins_with(Bytes bytes, std::string_view signature) {
    return bytes.size() >= signature.size() &&
           std::equal(signature.begin(), signature.end(), bytes.begin(),
                      [](char c, std::uint8_t b) { return static_cast<std::uint8_t>(c) == b; });
}

/// True when `length` bytes from offset `at` on lie in the file.
inline bool holds(Bytes bytes, std::uint64_t at, std::uint64_t length) {
    return at <= bytes.size() && length <= bytes.size() - at;
}

/// The bytes from offset `at` on; none beyond the end.
inline Bytes bytes_from(Bytes bytes, std::size_t at) {
    return bytes.subspan(std::min(at, bytes.size()));
}

/// The unsigned number of `length` bytes (up to 4) at offset `at`; 0 where it passes the end.
inline std::uint32_t number_at(Bytes bytes, std::size_t at, std::size_t length,
                               ByteOrder order = ByteOrder::Little) {
    if (!holds(bytes, at, length)) return 0;
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < length; ++i)
        value = value << 8 | bytes[at + (order == ByteOrder::Little ? length - 1 - i : i)];
    return value;
}

/// The same for a signed number of 32 bits, low byte first.
inline std::int32_t signed_at(Bytes bytes, std::size_t at) {
    return static_cast<std::int32_t>(number_at(bytes, at, 4));
}

} // namespace kelvane
