// The compressed data of a JPEG scan, parsed block by block without decoding samples.
#pragma once

#include "image/byte_numbers.h"

#include <array>
#include <optional>
#include <vector>

namespace kelvane {

/// One component (such as luminance) of a JPEG frame.
struct JpegComponent {
    std::uint8_t id = 0;
    int h = 1; ///< sampling factors, 1 to 4: blocks of 8 x 8 samples across and down an MCU
    int v = 1;
    std::uint64_t complete = 0; ///< which of the 64 coefficients have all their bits
    /// Progressive frames: which coefficients of each block are not 0 after the scans so far.
    std::vector<std::uint64_t> nonzero;
};

struct JpegFrame {
    bool progressive = false;
    int width = 0;
    int height = 0;
    std::vector<JpegComponent> components;

    /// The largest sampling factors of the components.
    int largest_h() const;
    int largest_v() const;
    /// Minimum coded units (MCU) of an interleaved scan: in a row, and rows of them.
    int mcus_across() const;
    int mcus_down() const;
};

/// A Huffman table: finds the symbol that a bit sequence starts with.
class JpegHuffmanTable {
  public:
    /// `counts` holds the number of codes of 1 to 16 bits, `symbols` a symbol for each of them.
    /// False when there cannot be that many codes; the table is then undefined.
    bool define(Bytes counts, Bytes symbols);
    bool defined() const { return defined_; }

    struct Code {
        int length = 0; ///< 0: no code starts with these bits
        int symbol = 0;
    };
    /// The code that 16 bits start with.
    Code front(std::uint32_t bits) const;

  private:
    static constexpr std::size_t kShort = 9; // codes up to this length are looked up in a table
    struct Length {
        int first = 0; // code
        int count = 0;
        int first_symbol = 0;
    };
    void add_short_codes(std::size_t length);

    std::array<std::uint16_t, 1 << kShort> short_codes_{}; // length and symbol; 0 for none
    std::array<Length, 17> lengths_{};
    std::array<std::uint8_t, 256> symbols_{};
    bool defined_ = false;
};

/// A component of a scan and its Huffman tables.
struct JpegScanComponent {
    JpegComponent* component = nullptr;
    const JpegHuffmanTable* dc = nullptr;
    const JpegHuffmanTable* ac = nullptr;
};

struct JpegScan {
    std::vector<JpegScanComponent> components;
    // Of a progressive frame:
    int first = 0; ///< coefficients, 0 to 63; from 1 on (AC) there is one component
    int last = 0;
    bool refines = false;   ///< brings one more bit of coefficients that earlier scans began
    bool last_bits = false; ///< no later scan refines them
};

/// The offset of the next marker (a byte 255 and one that is neither 0 nor 255) from `at` on; the
/// file's size when there is none.
std::size_t next_jpeg_marker(Bytes file, std::size_t at);

/// Parses the data that begins at offset `at` of `file` through all blocks of the scan. Returns the
/// offset behind the last of them, or nothing when the data ends or a restart mark is missing
/// before that. `restart_interval` is the number of MCUs between restart marks, 0 for none. All
/// tables that the scan needs must be defined.
std::optional<std::size_t> follow_scan(Bytes file, std::size_t at, const JpegFrame& frame,
                                       const JpegScan& scan, int restart_interval);

} // namespace kelvane
