// The texts of the pixel grid's coordinates, each formatted once.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <vector>

namespace kelvane {

/// Texts along one axis: `prefix` + number + `suffix` for each grid line a script mentions.
///
/// A script of a full scan names the same few thousand coordinates millions of times. Entries have
/// a fixed size, so appending one is a copy of constant length.
class CoordinateText {
  public:
    /// Room that `append` may touch from `to` on, whatever the length of the text.
    static constexpr std::size_t kEntrySize = 32;

    /// Lines `first_line` to `last_line` of a grid with `steps` lines per pixel (a power of 2),
    /// pixels being `size` apart (in the script's unit).
    CoordinateText(int first_line, int last_line, int steps, double size, double limit,
                   const char* prefix, const char* suffix);

    /// Copies the text of grid line `line` to `to` and returns its end. A coordinate beyond the
    /// limit is copied all the same and noted.
    char* append(int line, char* to) {
        Entry& entry = entries_[static_cast<std::size_t>(line - first_line_)];
        if (entry.length == 0) format(line, entry);
        std::memcpy(to, entry.text.data(), kEntrySize);
        return to + entry.length;
    }
    /// Whether a coordinate was appended whose magnitude is greater than the limit.
    bool out_of_range() const { return out_of_range_; }

  private:
    struct Entry {
        std::array<char, kEntrySize - 1> text;
        std::uint8_t length;
    };
    static_assert(sizeof(Entry) == kEntrySize);

    void format(int line, Entry& entry);

    std::vector<Entry> entries_;
    int first_line_;
    double pixels_per_line_;
    double size_;
    double limit_;
    const char* prefix_;
    const char* suffix_;
    bool out_of_range_ = false;
};

} // namespace kelvane
