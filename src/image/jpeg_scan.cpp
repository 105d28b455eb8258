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

    /// Skips the next marker, which must be restart mark `number`.
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

// Parses the blocks of one scan.
class Follower {
  public:
    Follower(Bytes file, std::size_t at, const JpegFrame& frame, const JpegScan& scan)
        : frame_(frame), scan_(scan), bits_(file, at), block_(kind_of_block()),
          mcus_({frame.mcus_across(), frame.mcus_down()}) {}

    std::optional<std::size_t> follow(int restart_interval) {
        const bool interleaved = scan_.components.size() > 1;
        const Grid grid = interleaved ? mcus_ : blocks_of(*scan_.components[0].component);
        int to_restart = restart_interval;
        int restart_number = 0;
        for (int y = 0; y < grid.height; ++y)
            for (int x = 0; x < grid.width; ++x) {
                if (restart_interval > 0 && to_restart-- == 0) {
                    if (!bits_.restart(restart_number)) return std::nullopt;
                    restart_number = (restart_number + 1) % 8;
                    to_restart = restart_interval - 1;
                    eob_run_ = 0;
                }
                if (interleaved ? !mcu(x, y) : !block(scan_.components[0], x, y))
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
        if (scan_.first == 0) return scan_.refines ? &Follower::dc_refinement : &Follower::dc_first;
        return scan_.refines ? &Follower::ac_refinement : &Follower::ac_first;
    }

    // Blocks of a component inside the picture: a scan of that component alone holds no others.
    Grid blocks_of(const JpegComponent& component) const {
        return {divided_up(std::int64_t{frame_.width} * component.h, 8 * frame_.largest_h()),
                divided_up(std::int64_t{frame_.height} * component.v, 8 * frame_.largest_v())};
    }

    bool mcu(int x, int y) {
        for (const JpegScanComponent& each : scan_.components)
            for (int row = 0; row < each.component->v; ++row)
                for (int column = 0; column < each.component->h; ++column)
                    if (!block(each, x * each.component->h + column, y * each.component->v + row))
                        return false;
        return true;
    }

    bool block(const JpegScanComponent& of, int x, int y) {
        std::uint64_t none = 0;
        if (!frame_.progressive) return (this->*block_)(of, none) && !bits_.overdrawn();
        const std::int64_t index = std::int64_t{y} * mcus_.width * of.component->h + x;
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

    bool dc_first(const JpegScanComponent& of, std::uint64_t&) {
        const int length = symbol(*of.dc);
        if (length < 0 || length > 16) return false;
        bits_.skip(length);
        return true;
    }

    bool dc_refinement(const JpegScanComponent&, std::uint64_t&) {
        bits_.skip(1);
        return true;
    }

    // A symbol of coefficients is the number of zeros before the next one, times 16, plus the
    // length of its value; length 0 is 16 zeros when the number is 15, else the end of the block.
    bool sequential(const JpegScanComponent& of, std::uint64_t& nonzero) {
        if (!dc_first(of, nonzero)) return false;
        for (int k = 1; k < 64; ++k) {
            const int next = symbol(*of.ac);
            if (next < 0) return false;
            const int length = next & 15;
            if (length == 0 && next != 0xF0) break;
            bits_.skip(length);
            k += next >> 4;
        }
        return true;
    }

    // As above, except that the end may be that of up to 32767 blocks.
    bool ac_first(const JpegScanComponent& of, std::uint64_t& nonzero) {
        if (eob_run_ > 0) {
            --eob_run_;
            return true;
        }
        for (int k = scan_.first; k <= scan_.last; ++k) {
            const int next = symbol(*of.ac);
            if (next < 0) return false;
            const int length = next & 15;
            if (length == 0 && next != 0xF0) {
                end_of_blocks(next >> 4);
                --eob_run_;
                break;
            }
            bits_.skip(length);
            k += next >> 4;
            if (length > 0) mark(nonzero, k);
        }
        return true;
    }

    // Damaged data may run beyond the last coefficient. Decoders clamp the index to it, and so does
    // this.
    static void mark(std::uint64_t& nonzero, int k) {
        nonzero |= std::uint64_t{1} << std::min(k, 63);
    }

    void end_of_blocks(int exponent) {
        eob_run_ = (1 << exponent) + static_cast<int>(bits_.read(exponent));
    }

    // Each coefficient that is not 0 takes one correction bit. Symbols between these bits place the
    // coefficients that become other than 0; their run lengths count only coefficients that stay 0.
    bool ac_refinement(const JpegScanComponent& of, std::uint64_t& nonzero) {
        int k = scan_.first;
        for (; eob_run_ == 0 && k <= scan_.last; ++k) {
            const int next = symbol(*of.ac);
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
        if (eob_run_ == 0) return true;
        --eob_run_;
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
    Grid mcus_;
    int eob_run_ = 0;
};

} // namespace

std::size_t next_jpeg_marker(Bytes file, std::size_t at) {
    while (holds(file, at, 2) && (file[at] != 0xFF || file[at + 1] == 0 || file[at + 1] == 0xFF))
        ++at;
    return holds(file, at, 2) ? at : file.size();
}

int JpegFrame::largest_h() const {
    return std::ranges::max(components, {}, &JpegComponent::h).h;
}

int JpegFrame::largest_v() const {
    return std::ranges::max(components, {}, &JpegComponent::v).v;
}

int JpegFrame::mcus_across() const {
    return divided_up(width, 8 * largest_h());
}

int JpegFrame::mcus_down() const {
    return divided_up(height, 8 * largest_v());
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

// Fills all entries of kShort bits that start with a code of this length.
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
