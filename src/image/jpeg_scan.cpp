#include "image/jpeg_scan.h"

#include <algorithm>
#include <bit>

namespace kelvane {
namespace {

constexpr int divided_up(std::int64_t a, std::int64_t b) {
    return static_cast<int>((a + b - 1) / b);
}

// The bits of a scan up to the next marker, zeros behind them.
class Bits {
  public:
    Bits(Bytes file, std::size_t at) : file_(file), at_(at) {}

    std::uint32_t peek(int count) {
        if (available_ < count) fill();
        return static_cast<std::uint32_t>(buffer_ >> (64 - count));
    }
    /// At most 32 bits.
    void skip(int count) {
        if (available_ < count) fill();
        buffer_ <<= count;
        available_ -= count;
    }
    std::uint32_t read(int count) {
        if (count == 0) return 0;
        const std::uint32_t value = peek(count);
        skip(count);
        return value;
    }
    /// More bits were taken than there are.
    bool overdrawn() const { return available_ < 0; }

    /// Goes behind the next marker, which must be restart mark `number`.
    bool restart(int number) {
        at_ = next_jpeg_marker(file_, at_);
        if (number_at(file_, at_ + 1, 1) != 0xD0U + static_cast<unsigned>(number)) return false;
        at_ += 2;
        buffer_ = 0;
        available_ = 0;
        return true;
    }
    std::size_t at() const { return at_; }

  private:
    void fill() {
        while (available_ <= 56 && at_ < file_.size()) {
            const std::uint8_t byte = file_[at_];
            if (byte == 0xFF) {
                // A zero follows a byte of the data, anything else makes it a marker.
                if (at_ + 1 >= file_.size() || file_[at_ + 1] != 0) return;
                ++at_;
            }
            ++at_;
            buffer_ |= std::uint64_t{byte} << (56 - available_);
            available_ += 8;
        }
    }

    Bytes file_;
    std::size_t at_;
    std::uint64_t buffer_ = 0; // the next bit is the highest
    int available_ = 0;
};

// Follows the blocks of one scan.
class Follower {
  public:
    Follower(Bytes file, std::size_t at, const JpegFrame& frame, const JpegScan& scan)
        : frame_(frame), scan_(scan), bits_(file, at), block_(kind_of_block()),
          units_({frame.units_across(), frame.units_down()}) {}

    std::optional<std::size_t> follow(int restart_interval) {
        const bool interleaved = scan_.components.size() > 1;
        const Grid units = interleaved ? units_ : blocks_of(*scan_.components[0].component);
        int to_restart = restart_interval;
        int restart_number = 0;
        for (int y = 0; y < units.height; ++y)
            for (int x = 0; x < units.width; ++x) {
                if (restart_interval > 0 && to_restart-- == 0) {
                    if (!bits_.restart(restart_number)) return std::nullopt;
                    restart_number = (restart_number + 1) % 8;
                    to_restart = restart_interval - 1;
                    blocks_without_data_ = 0;
                }
                if (interleaved ? !unit(x, y) : !block(scan_.components[0], x, y))
                    return std::nullopt;
            }
        return bits_.at();
    }

  private:
    struct Grid {
        int width;
        int height;
    };
    using Block = bool (Follower::*)(const JpegScanComponent&, std::uint64_t& nonzero);

    Block kind_of_block() const {
        if (!frame_.progressive) return &Follower::sequential;
        if (scan_.first == 0) return scan_.refines ? &Follower::mean_bit : &Follower::mean;
        return scan_.refines ? &Follower::refinement : &Follower::coefficients;
    }

    // Blocks of a component that lie in the picture, which is all that a scan of it alone holds.
    Grid blocks_of(const JpegComponent& component) const {
        return {divided_up(std::int64_t{frame_.width} * component.across, 8 * frame_.most_across()),
                divided_up(std::int64_t{frame_.height} * component.down, 8 * frame_.most_down())};
    }

    bool unit(int x, int y) {
        for (const JpegScanComponent& each : scan_.components)
            for (int row = 0; row < each.component->down; ++row)
                for (int column = 0; column < each.component->across; ++column)
                    if (!block(each, x * each.component->across + column,
                               y * each.component->down + row))
                        return false;
        return true;
    }

    bool block(const JpegScanComponent& of, int x, int y) {
        std::uint64_t none = 0;
        if (!frame_.progressive) return (this->*block_)(of, none) && !bits_.overdrawn();
        const std::int64_t index = std::int64_t{y} * units_.width * of.component->across + x;
        return (this->*block_)(of, of.component->nonzero[static_cast<std::size_t>(index)]) &&
               !bits_.overdrawn();
    }

    // The next symbol; -1 when the bits are no code of the table.
    int symbol(const JpegHuffmanTable& table) {
        const JpegHuffmanTable::Code code = table.front(bits_.peek(16));
        if (code.length == 0) return -1;
        bits_.skip(code.length);
        return code.symbol;
    }

    bool mean(const JpegScanComponent& of, std::uint64_t&) {
        const int length = symbol(*of.mean);
        if (length < 0 || length > 16) return false;
        bits_.skip(length);
        return true;
    }

    bool mean_bit(const JpegScanComponent&, std::uint64_t&) {
        bits_.skip(1);
        return true;
    }

    // A symbol of coefficients is the number of zeros before the next one, times 16, plus the
    // length of its value; length 0 is 16 zeros when the number is 15, else the end of the block.
    bool sequential(const JpegScanComponent& of, std::uint64_t& nonzero) {
        if (!mean(of, nonzero)) return false;
        for (int k = 1; k < 64; ++k) {
            const int next = symbol(*of.coefficients);
            if (next < 0) return false;
            const int length = next & 15;
            if (length == 0 && next != 0xF0) break;
            bits_.skip(length);
            k += next >> 4;
        }
        return true;
    }

    // As above, except that the end may be that of up to 32767 blocks.
    bool coefficients(const JpegScanComponent& of, std::uint64_t& nonzero) {
        if (blocks_without_data_ > 0) {
            --blocks_without_data_;
            return true;
        }
        for (int k = scan_.first; k <= scan_.last; ++k) {
            const int next = symbol(*of.coefficients);
            if (next < 0) return false;
            const int length = next & 15;
            if (length == 0 && next != 0xF0) {
                end_of_blocks(next >> 4);
                --blocks_without_data_;
                break;
            }
            bits_.skip(length);
            k += next >> 4;
            if (length > 0) mark(nonzero, k);
        }
        return true;
    }

    // As decoders do, damaged data that runs beyond the last coefficient is taken for that one.
    static void mark(std::uint64_t& nonzero, int k) {
        nonzero |= std::uint64_t{1} << std::min(k, 63);
    }

    void end_of_blocks(int exponent) {
        blocks_without_data_ = (1 << exponent) + static_cast<int>(bits_.read(exponent));
    }

    // Coefficients that are not 0 get a bit each; between them stand symbols for those that become
    // so, whose zeros count only coefficients that stay 0.
    bool refinement(const JpegScanComponent& of, std::uint64_t& nonzero) {
        int k = scan_.first;
        for (; blocks_without_data_ == 0 && k <= scan_.last; ++k) {
            const int next = symbol(*of.coefficients);
            if (next < 0) return false;
            const int length = next & 15;
            if (length == 0 && next != 0xF0) {
                end_of_blocks(next >> 4);
                break;
            }
            if (length > 0) bits_.skip(1);
            for (int zeros = next >> 4; k <= scan_.last; ++k) {
                if ((nonzero >> k & 1) != 0)
                    bits_.skip(1);
                else if (--zeros < 0)
                    break;
            }
            if (length > 0) mark(nonzero, k);
        }
        if (blocks_without_data_ == 0) return true;
        --blocks_without_data_;
        const std::uint64_t rest = k > scan_.last ? 0 : nonzero >> k << k << (63 - scan_.last);
        const int corrections = std::popcount(rest);
        bits_.skip(corrections / 2);
        bits_.skip(corrections - corrections / 2);
        return true;
    }

    const JpegFrame& frame_;
    const JpegScan& scan_;
    Bits bits_;
    Block block_;
    Grid units_;
    int blocks_without_data_ = 0;
};

} // namespace

std::size_t next_jpeg_marker(Bytes file, std::size_t at) {
    while (holds(file, at, 2) && (file[at] != 0xFF || file[at + 1] == 0 || file[at + 1] == 0xFF))
        ++at;
    return holds(file, at, 2) ? at : file.size();
}

int JpegFrame::most_across() const {
    return std::ranges::max(components, {}, &JpegComponent::across).across;
}

int JpegFrame::most_down() const {
    return std::ranges::max(components, {}, &JpegComponent::down).down;
}

int JpegFrame::units_across() const {
    return divided_up(width, 8 * most_across());
}

int JpegFrame::units_down() const {
    return divided_up(height, 8 * most_down());
}

bool JpegHuffmanTable::define(Bytes counts, Bytes symbols) {
    *this = {};
    if (symbols.size() > symbols_.size()) return false;
    std::ranges::copy(symbols, symbols_.begin());
    int code = 0;
    int symbol = 0;
    for (std::size_t length = 1; length <= 16; ++length, code <<= 1) {
        const int codes = counts[length - 1];
        if (code + codes > 1 << length) return false;
        lengths_[length] = {code, codes, symbol};
        if (length <= kShort) add_short_codes(length);
        code += codes;
        symbol += codes;
    }
    defined_ = true;
    return true;
}

// Every sequence of kShort bits that begins with a code of this length leads to its symbol.
void JpegHuffmanTable::add_short_codes(std::size_t length) {
    const std::size_t sequences = std::size_t{1} << (kShort - length);
    const Length& codes = lengths_[length];
    auto entry = short_codes_.begin() + codes.first * static_cast<std::ptrdiff_t>(sequences);
    for (int i = 0; i < codes.count; ++i, entry += static_cast<std::ptrdiff_t>(sequences))
        std::fill_n(entry, sequences,
                    static_cast<std::uint16_t>(
                        length << 8 | symbols_[static_cast<std::size_t>(codes.first_symbol + i)]));
}

JpegHuffmanTable::Code JpegHuffmanTable::front(std::uint32_t bits) const {
    if (const int entry = short_codes_[bits >> (16 - kShort)]; entry != 0)
        return {entry >> 8, entry & 0xFF};
    for (std::size_t length = kShort + 1; length <= 16; ++length) {
        const int offset = static_cast<int>(bits >> (16 - length)) - lengths_[length].first;
        if (offset >= 0 && offset < lengths_[length].count)
            return {static_cast<int>(length),
                    symbols_[static_cast<std::size_t>(lengths_[length].first_symbol + offset)]};
    }
    return {};
}

std::optional<std::size_t> follow_scan(Bytes file, std::size_t at, const JpegFrame& frame,
                                       const JpegScan& scan, int restart_interval) {
    return Follower(file, at, frame, scan).follow(restart_interval);
}

} // namespace kelvane
