#include "export/coordinate_text.h"

#include "base/number_text.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace kelvane {

CoordinateText::CoordinateText(int first_line, int last_line, int steps, double size, double limit,
                               const char* prefix, const char* suffix)
    : entries_(static_cast<std::size_t>(last_line - first_line) + 1), first_line_(first_line),
      pixels_per_line_(1. / steps), size_(size), limit_(limit), prefix_(prefix), suffix_(suffix) {}

void CoordinateText::format(int line, Entry& entry) {
    const double value = line * pixels_per_line_ * size_;
    if (std::abs(value) > limit_) out_of_range_ = true;
    static_assert(kLongestNumber + 4 <= sizeof(entry.text));
    const std::string_view prefix(prefix_);
    const std::string_view suffix(suffix_);
    char* end = std::copy(prefix.begin(), prefix.end(), entry.text.data());
    end = format_number(value, end);
    end = std::copy(suffix.begin(), suffix.end(), end);
    entry.length = static_cast<std::uint8_t>(end - entry.text.data());
}

} // namespace kelvane
