#include "process/despeckle.h"

#include "process/point_rows.h"
#include "process/small_areas.h"

#include <array>
#include <cstring>
#include <emmintrin.h>
#include <vector>

namespace kelvane {
namespace {

void read_row(const std::uint8_t* greys, int limit, std::size_t words, BitWord* bits) {
    const __m128i most = _mm_set1_epi8(static_cast<char>(limit));
    for (std::size_t i = 0; i < words; ++i) {
        BitWord word = 0;
        for (int part = 0; part < kWordBits; part += 16, greys += 16) {
            const __m128i grey = _mm_loadu_si128(reinterpret_cast<const __m128i*>(greys));
            const __m128i dark = _mm_cmpeq_epi8(_mm_min_epu8(grey, most), grey);
            word |= static_cast<BitWord>(_mm_movemask_epi8(dark)) << part;
        }
        bits[i] = word;
    }
}

// Eight bits as eight greys, the lowest bit first in memory.
std::array<std::array<std::uint8_t, 8>, 256> make_greys() {
    std::array<std::array<std::uint8_t, 8>, 256> greys{};
    for (unsigned bits = 0; bits < 256; ++bits)
        for (unsigned i = 0; i < 8; ++i)
            greys[bits][i] = (bits >> i & 1) != 0 ? 255 : 0;
    return greys;
}

void write_row(const BitWord* light, std::size_t words, std::uint8_t* greys) {
    static const auto table = make_greys();
    for (std::size_t i = 0; i < words; ++i)
        for (int part = 0; part < kWordBits; part += 8, greys += 8)
            std::memcpy(greys, table[light[i] >> part & 255].data(), 8);
}

} // namespace

void Despeckle(ImageView image, int limit, int most, ProgressObserver* observer) {
    const ProgressReporter progress(observer);
    const PointRows& rows = point_rows();
    BitRows bits(image.width, image.height);
    std::vector<std::uint8_t> greys(bits.words() * kWordBits);
    const auto dark_done = [&](int y) { progress.at(y); };
    const auto light_done = [&](int y) { progress.at(2L * image.height + y); };
    progress.init(4L * image.height - 1);
    for (int y = 0; y < image.height; ++y) {
        rows.luminance(image.row(y), greys.data(), image.width);
        read_row(greys.data(), limit, bits.words(), bits.row(y));
        bits.clear_rest(y);
    }
    clear_small_areas(bits, Neighbours::Eight, static_cast<std::uint32_t>(most), dark_done);
    for (int y = 0; y < image.height; ++y)
        bits.invert_row(y);
    clear_small_areas(bits, Neighbours::Four, static_cast<std::uint32_t>(most), light_done);
    for (int y = 0; y < image.height; ++y) {
        write_row(bits.row(y), bits.words(), greys.data());
        rows.spread(greys.data(), image.row(y), image.width);
    }
    progress.complete();
}

} // namespace kelvane
