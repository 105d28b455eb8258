#include "export/width_check.h"

#include "export/disc.h"

#include <algorithm>
#include <cmath>

namespace kelvane {
namespace {

// Quotients of lengths such as 0.54 mm / 0.09 mm come out a little above the whole number.
constexpr double kRounding = 1e-6;

// The disc that tells bars thinner than `limit`; 1 when there cannot be any.
int diameter_for(const BitPicture& drawn, double limit) {
    const int largest = 2 * std::min(drawn.width(), drawn.height()) + 1;
    if (!(limit > 1) || drawn.width() == 0) return 1;
    return limit < largest ? static_cast<int>(std::ceil(limit - kRounding)) : largest;
}

// Pixels of lines or gaps that no disc covers.
BitPicture residue_of(const BitPicture& drawn, WidthOf what, int diameter) {
    BitPicture residue = drawn;
    if (what == WidthOf::Lines)
        Disc(diameter).open(residue);
    else
        Disc(diameter).close(residue);
    for (int y = 0; y < residue.height(); ++y)
        for (int i = 0; i < residue.row_words(); ++i)
            residue.row(y)[i] ^= drawn.row(y)[i];
    return residue;
}

// Searches the largest disc that finds no thin place among those in `too_thin`. The disc of
// diameter `some` found them; `found` is one of them.
Thinnest narrow(const BitPicture& drawn, WidthOf what, int some, ThinPlaces found,
                const BitPicture& too_thin, ProgressObserver* observer) {
    int none = 1;
    // Narrow places first: small discs take less time, and hairlines are what is found most.
    for (int step = 1; some - none > 1; step *= 2) {
        const int diameter = none + std::min(step, (some - none) / 2);
        BitPicture residue = residue_of(drawn, what, diameter);
        const ThinPlaces place =
            find_thin_place(drawn, what, diameter, residue, too_thin, observer);
        if (place.count == 0) {
            none = diameter;
        } else {
            some = diameter;
            found = place;
        }
    }
    return {static_cast<double>(none), found.x, found.y};
}

} // namespace

WidthReport check_widths(const BitPicture& drawn, WidthOf what, double limit,
                         ProgressObserver* observer) {
    const int diameter = diameter_for(drawn, limit);
    WidthReport report;
    report.too_thin = residue_of(drawn, what, diameter);
    const ThinPlaces found = keep_thin_places(drawn, what, diameter, report.too_thin, observer);
    report.places = found.count;
    if (found.count != 0)
        report.thinnest = narrow(drawn, what, diameter, found, report.too_thin, observer);
    return report;
}

} // namespace kelvane
