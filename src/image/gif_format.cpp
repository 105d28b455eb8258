#include "image/gif_format.h"

#include <array>

namespace kelvane {
namespace {

constexpr std::size_t kCanvas = 6;     // offset of its width and height
constexpr std::size_t kScreenEnd = 13; // behind the signature and the logical screen
constexpr std::uint8_t kImage = ',';
constexpr std::uint8_t kExtension = '!';
constexpr std::uint8_t kTrailer = ';';
constexpr std::size_t kDescriptorBytes = 10; // with the byte that introduces it

// Bytes of the colour table that the packed fields announce.
std::size_t colour_table_bytes(std::uint32_t packed) {
    return (packed & 0x80) != 0 ? std::size_t{6} << (packed & 7) : 0;
}

// The offset behind the data blocks that begin at `at`, their empty terminator included; nothing
// when the file ends first.
std::optional<std::size_t> end_of_blocks(Bytes file, std::size_t at) {
    while (holds(file, at, 1)) {
        const std::size_t length = file[at];
        at += 1 + length;
        if (length == 0) return at;
    }
    return std::nullopt;
}

// Offsets of the parts that the first frame is made of.
struct Parts {
    std::size_t colours_end; // of the table for the whole file
    std::size_t control = 0; // the extension that names the transparent colour; 0 for none
    std::size_t control_end = 0;
    std::size_t descriptor = 0;
    std::size_t data = 0; // begins with the code size
    std::size_t end = 0;
};

std::optional<Parts> find_first_frame(Bytes file) {
    constexpr std::uint32_t kGraphicControl = 0xF9;
    Parts parts{kScreenEnd + colour_table_bytes(number_at(file, 10, 1))};
    std::size_t at = parts.colours_end;
    while (number_at(file, at, 1) == kExtension) {
        const auto end = end_of_blocks(file, at + 2);
        if (!end) return std::nullopt;
        if (number_at(file, at + 1, 1) == kGraphicControl) {
            parts.control = at;
            parts.control_end = *end;
        }
        at = *end;
    }
    if (number_at(file, at, 1) != kImage || !holds(file, at, kDescriptorBytes)) return std::nullopt;
    parts.descriptor = at;
    parts.data = at + kDescriptorBytes + colour_table_bytes(number_at(file, at + 9, 1));
    const auto end = end_of_blocks(file, parts.data + 1);
    if (!end) return std::nullopt;
    parts.end = *end;
    return parts;
}

// The codes of LZW data, lowest bit first, taken from blocks of up to 255 bytes.
class Codes {
  public:
    Codes(Bytes file, std::size_t at) : file_(file), at_(at) {}

    /// -1 behind the last block.
    int next(int length) {
        while (available_ < length) {
            if (in_block_ == 0 && (in_block_ = number_at(file_, at_++, 1)) == 0) return -1;
            --in_block_;
            bits_ |= number_at(file_, at_++, 1) << available_;
            available_ += 8;
        }
        const auto code = static_cast<int>(bits_ & ((1U << length) - 1));
        bits_ >>= length;
        available_ -= length;
        return code;
    }

  private:
    Bytes file_;
    std::size_t at_;
    std::uint32_t in_block_ = 0; // bytes of the block that are still to come
    std::uint32_t bits_ = 0;
    int available_ = 0;
};

// Whether LZW data holds that many pixels. Only the lengths of the strings in its table are kept.
class PixelCount {
  public:
    explicit PixelCount(int root_bits) : clear_(1 << root_bits), root_bits_(root_bits) {
        lengths_.fill(1);
        start();
    }

    bool reaches(std::int64_t wanted, Codes codes) {
        while (wanted > 0) {
            const int code = codes.next(bits_);
            if (code == clear_) {
                start();
                continue;
            }
            const bool grows = previous_ >= 0 && used_ < lengths_.size();
            if (grows) lengths_[used_++] = length(previous_) + 1;
            if (code < 0 || code == clear_ + 1 || static_cast<std::size_t>(code) >= used_)
                return false;
            wanted -= length(code);
            previous_ = code;
            if (used_ == std::size_t{1} << bits_ && bits_ < 12) ++bits_;
        }
        return true;
    }

  private:
    void start() {
        bits_ = root_bits_ + 1;
        used_ = static_cast<std::size_t>(clear_) + 2;
        previous_ = -1;
    }
    int length(int code) const { return lengths_[static_cast<std::size_t>(code)]; }

    int clear_; // the code that empties the table; the next one ends the data
    int root_bits_;
    std::array<int, 4096> lengths_;
    std::size_t used_ = 0;
    int bits_ = 0;
    int previous_ = -1;
};

bool holds_pixels(Bytes file, std::size_t at, std::int64_t wanted) {
    const auto root_bits = static_cast<int>(number_at(file, at, 1));
    return root_bits >= 1 && root_bits <= 11 &&
           PixelCount(root_bits).reaches(wanted, Codes(file, at + 1));
}

void append(std::vector<std::uint8_t>& to, Bytes file, std::size_t begin, std::size_t end) {
    to.insert(to.end(), file.begin() + static_cast<std::ptrdiff_t>(begin),
              file.begin() + static_cast<std::ptrdiff_t>(end));
}

} // namespace

bool is_gif(Bytes file_bytes) {
    return begins_with(file_bytes, "GIF87a") || begins_with(file_bytes, "GIF89a");
}

Completeness gif_completeness(Bytes file_bytes) {
    if (!holds(file_bytes, 0, kScreenEnd)) return Completeness::Damaged;
    const auto canvas =
        size_completeness(number_at(file_bytes, kCanvas, 2), number_at(file_bytes, kCanvas + 2, 2));
    if (canvas != Completeness::Complete) return canvas;
    const auto parts = find_first_frame(file_bytes);
    if (!parts) return Completeness::Damaged;
    const std::int64_t width = number_at(file_bytes, parts->descriptor + 5, 2);
    const std::int64_t height = number_at(file_bytes, parts->descriptor + 7, 2);
    const auto frame = size_completeness(width, height);
    if (frame != Completeness::Complete) return frame;
    return complete_if(holds(file_bytes, parts->end, 1) &&
                       holds_pixels(file_bytes, parts->data, width * height));
}

std::optional<GifFrame> first_gif_frame(Bytes file_bytes) {
    const auto parts = find_first_frame(file_bytes);
    if (!parts) return std::nullopt;
    const auto side = [&](std::size_t at) {
        return static_cast<int>(number_at(file_bytes, at, 2));
    };
    GifFrame frame;
    frame.placement = {side(parts->descriptor + 1), side(parts->descriptor + 3), side(kCanvas),
                       side(kCanvas + 2)};
    append(frame.file, file_bytes, 0, parts->colours_end);
    append(frame.file, file_bytes, parts->control, parts->control_end);
    const std::size_t descriptor = frame.file.size();
    append(frame.file, file_bytes, parts->descriptor, parts->end);
    frame.file.push_back(kTrailer);
    // The canvas takes the frame's size, and the frame its top left corner.
    std::copy_n(&frame.file[descriptor + 5], 4, &frame.file[kCanvas]);
    std::fill_n(&frame.file[descriptor + 1], 4, std::uint8_t{0});
    return frame;
}

} // namespace kelvane
