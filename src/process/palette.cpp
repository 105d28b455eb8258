#include "process/palette.h"

#include "base/file_bytes.h"
#include "base/file_error.h"
#include "base/strict_number.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string>

namespace kelvane {
namespace {

constexpr int kFarthest = 3 * 255;

// Takes the first line off `text` and returns it without its end, CR LF or LF.
std::string_view next_line(std::string_view& text) {
    const std::size_t feed = text.find('\n');
    std::string_view line = text.substr(0, feed);
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    if (feed != std::string_view::npos && line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

std::optional<std::array<std::string_view, 3>> three_fields(std::string_view line) {
    if (std::count(line.begin(), line.end(), ' ') != 2) return std::nullopt;
    const std::size_t first = line.find(' ');
    const std::size_t second = line.find(' ', first + 1);
    return std::array{line.substr(0, first), line.substr(first + 1, second - first - 1),
                      line.substr(second + 1)};
}

cPalette::Colour colour(const std::array<std::string_view, 3>& fields, std::size_t line_number) {
    cPalette::Colour colour{};
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const std::optional<std::uint8_t> value = strict_number<std::uint8_t>(fields[i]);
        if (!value) throw FileError(FileFault::NoColour, std::to_string(line_number));
        colour[i] = *value;
    }
    return colour;
}

} // namespace

cPalette parse_palette(std::string_view text) {
    std::vector<cPalette::Colour> colours;
    for (std::size_t line_number = 1; !text.empty(); ++line_number) {
        if (const auto fields = three_fields(next_line(text)))
            colours.push_back(colour(*fields, line_number));
    }
    return cPalette(std::move(colours));
}

cPalette read_palette(const std::filesystem::path& file) {
    const std::vector<std::uint8_t> bytes = read_file_bytes(file);
    return parse_palette({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

bool cPalette::LoadFromFile(const std::filesystem::path& file) {
    colours_.clear();
    try {
        *this = read_palette(file);
        return true;
    } catch (const FileError&) {
        return false;
    }
}

int cPalette::ClosestIndex(int red, int Green, int Blue) const {
    int best = 0;
    int best_distance = kFarthest;
    for (int index = 1; index <= Count(); ++index) {
        const Colour& candidate = colours_[static_cast<std::size_t>(index) - 1];
        const int distance = std::abs(red - candidate[0]) + std::abs(Green - candidate[1]) +
                             std::abs(Blue - candidate[2]);
        if (distance == 0) return index;
        if (distance < best_distance) {
            best_distance = distance;
            best = index;
        }
    }
    return best;
}

} // namespace kelvane
