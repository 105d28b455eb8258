#include "dialogs/export_preview.h"

#include "dialogs/preview_size.h"

#include <algorithm>
#include <cstdint>

namespace kelvane {
namespace {

constexpr std::uint8_t kRed[] = {0, 0, 255}; // blue, green, red

struct Span {
    int first;
    int end;
};

// The pixels of `size` that pixel `i` of `parts` shows, at least one.
Span shown_by(int i, int size, int parts) {
    const auto start = [&](int part) {
        return static_cast<int>(std::int64_t{part} * size / parts);
    };
    return {start(i), std::max(start(i + 1), start(i) + 1)};
}

void mark(const BitPicture& places, ImageView preview) {
    if (places.width() == 0) return; // not checked
    for (int y = 0; y < preview.height; ++y) {
        const Span rows = shown_by(y, places.height(), preview.height);
        for (int x = 0; x < preview.width; ++x) {
            const Span columns = shown_by(x, places.width(), preview.width);
            if (places.any(columns.first, rows.first, columns.end, rows.end))
                std::copy(std::begin(kRed), std::end(kRed), preview.pixel(x, y));
        }
    }
}

} // namespace

cDIBSection export_preview(const cDIBSection& traced, const BoardReport& report) {
    const PreviewSize size = preview_size(traced.Width(), traced.Height());
    cDIBSection preview = traced.Resample(size.height, size.width);
    if (preview.empty()) return preview;
    mark(report.lines.places.too_thin, preview.view());
    mark(report.gaps.places.too_thin, preview.view());
    return preview;
}

} // namespace kelvane
