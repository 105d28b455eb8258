#include "image/tiff_format.h"

namespace kelvane {
namespace {

constexpr std::size_t kEntryBytes = 12;

// Bytes of one value of the types BYTE, SHORT and LONG; 0 for all others.
std::size_t bytes_of_type(std::uint32_t type) {
    constexpr std::size_t kBytes[] = {0, 1, 0, 2, 4};
    return type < std::size(kBytes) ? kBytes[type] : 0;
}

// Values lie one after the other: when the last one is inside the file, all are.
bool holds_values(const TiffValues& values) {
    return values.count() == 0 || values.at(values.count() - 1);
}

// All blocks (strips or tiles) of the picture lie in the file. Some writers leave out the byte
// counts; then there is nothing to check.
bool holds_blocks(Bytes file, const TiffValues& offsets, const TiffValues& byte_counts) {
    const std::uint32_t blocks = std::min(offsets.count(), byte_counts.count());
    for (std::uint32_t i = 0; i < blocks; ++i) {
        const auto offset = offsets.at(i);
        const auto length = byte_counts.at(i);
        if (!offset || !length || !holds(file, *offset, *length)) return false;
    }
    return true;
}

} // namespace

bool is_tiff(Bytes file_bytes) {
    return begins_with(file_bytes, {"II*\0", 4}) || begins_with(file_bytes, {"MM\0*", 4});
}

TiffValues::TiffValues(Bytes tiff, ByteOrder order, std::size_t entry)
    : tiff_(tiff), order_(order),
      value_bytes_(bytes_of_type(number_at(tiff, entry + 2, 2, order))) {
    if (value_bytes_ == 0) return;
    count_ = number_at(tiff, entry + 4, 4, order);
    // Up to four bytes stand in the entry itself, more at the offset that it holds.
    const bool inside = std::uint64_t{count_} * value_bytes_ <= 4;
    first_ = inside ? entry + 8 : number_at(tiff, entry + 8, 4, order);
}

std::optional<std::uint32_t> TiffValues::at(std::uint32_t index) const {
    const std::uint64_t offset = first_ + std::uint64_t{value_bytes_} * index;
    if (index >= count_ || !holds(tiff_, offset, value_bytes_)) return std::nullopt;
    return number_at(tiff_, static_cast<std::size_t>(offset), value_bytes_, order_);
}

TiffDirectory::TiffDirectory(Bytes tiff)
    : tiff_(tiff), order_(begins_with(tiff, "II") ? ByteOrder::Little : ByteOrder::Big) {
    const std::size_t directory = number_at(tiff, 4, 4, order_);
    if (!is_tiff(tiff) || !holds(tiff, directory, 2)) return;
    entries_at_ = directory + 2;
    entries_ = number_at(tiff, directory, 2, order_);
}

bool TiffDirectory::whole() const {
    return entries_ > 0 && holds(tiff_, entries_at_, entries_ * kEntryBytes);
}

std::optional<std::size_t> TiffDirectory::entry_of(std::uint32_t tag) const {
    for (std::size_t i = 0; i < entries_; ++i) {
        const std::size_t entry = entries_at_ + kEntryBytes * i;
        if (!holds(tiff_, entry, kEntryBytes)) break;
        if (number_at(tiff_, entry, 2, order_) == tag) return entry;
    }
    return std::nullopt;
}

TiffValues TiffDirectory::values(std::uint32_t tag) const {
    const auto entry = entry_of(tag);
    return entry ? TiffValues(tiff_, order_, *entry) : TiffValues();
}

std::optional<double> TiffDirectory::rational(std::uint32_t tag) const {
    constexpr std::uint32_t kRational = 5; // two numbers of 32 bits, never in the entry itself
    const auto entry = entry_of(tag);
    if (!entry || number_at(tiff_, *entry + 2, 2, order_) != kRational ||
        number_at(tiff_, *entry + 4, 4, order_) == 0)
        return std::nullopt;
    const std::size_t at = number_at(tiff_, *entry + 8, 4, order_);
    const double divisor = number_at(tiff_, at + 4, 4, order_);
    if (divisor == 0) return std::nullopt;
    return number_at(tiff_, at, 4, order_) / divisor;
}

Completeness tiff_completeness(Bytes file_bytes) {
    constexpr std::uint32_t kWidth = 256;
    constexpr std::uint32_t kHeight = 257;
    constexpr std::uint32_t kBitsPerSample = 258;
    constexpr std::uint32_t kStripOffsets = 273;
    constexpr std::uint32_t kStripByteCounts = 279;
    constexpr std::uint32_t kColourMap = 320;
    constexpr std::uint32_t kTileOffsets = 324;
    constexpr std::uint32_t kTileByteCounts = 325;
    constexpr std::uint32_t kExtraSamples = 338;
    const TiffDirectory directory(file_bytes);
    const auto width = directory.values(kWidth).at(0);
    const auto height = directory.values(kHeight).at(0);
    if (!directory.whole() || !width || !height) return Completeness::Damaged;
    if (const auto size = size_completeness(*width, *height); size != Completeness::Complete)
        return size;
    return complete_if(holds_values(directory.values(kBitsPerSample)) &&
                       holds_values(directory.values(kColourMap)) &&
                       holds_values(directory.values(kExtraSamples)) &&
                       holds_blocks(file_bytes, directory.values(kStripOffsets),
                                    directory.values(kStripByteCounts)) &&
                       holds_blocks(file_bytes, directory.values(kTileOffsets),
                                    directory.values(kTileByteCounts)));
}

} // namespace kelvane
