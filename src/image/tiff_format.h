// The first directory of a TIFF structure: a file, or the content of an EXIF segment.
#pragma once

#include "image/byte_numbers.h"
#include "image/completeness.h"

#include <optional>

namespace kelvane {

bool is_tiff(Bytes file_bytes);

/// The values of one entry of a directory: whole numbers of 8, 16 or 32 bits.
class TiffValues {
  public:
    TiffValues() = default;
    TiffValues(Bytes tiff, ByteOrder order, std::size_t entry);

    /// 0 without the entry, and where its values are no whole numbers.
    std::uint32_t count() const { return count_; }
    /// Nothing where the value lies beyond the end of the file.
    std::optional<std::uint32_t> at(std::uint32_t index) const;

  private:
    Bytes tiff_;
    ByteOrder order_ = ByteOrder::Little;
    std::uint64_t first_ = 0;
    std::uint32_t count_ = 0;
    std::size_t value_bytes_ = 0;
};

class TiffDirectory {
  public:
    /// A directory without entries when `tiff` is no TIFF structure or ends before the directory.
    explicit TiffDirectory(Bytes tiff);

    /// False when the file ends before the directory does.
    bool whole() const;
    TiffValues values(std::uint32_t tag) const;
    /// The first value of a tag, such as 256, the width; `missing` when there is none.
    std::uint32_t number(std::uint32_t tag, std::uint32_t missing) const {
        return values(tag).at(0).value_or(missing);
    }
    /// The first value of a tag whose values are fractions, such as 282, the resolution; nothing
    /// without the tag, for a value of another type or beyond the end, and for a divisor of 0.
    std::optional<double> rational(std::uint32_t tag) const;

  private:
    /// The offset of the tag's entry.
    std::optional<std::size_t> entry_of(std::uint32_t tag) const;

    Bytes tiff_;
    ByteOrder order_;
    std::size_t entries_at_ = 0;
    std::uint32_t entries_ = 0;
};

/// Whether the directory of the first picture and all strips or tiles that it lists are there.
Completeness tiff_completeness(Bytes file_bytes);

} // namespace kelvane
