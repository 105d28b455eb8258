// Reductions for processors with AVX2, 32 pixels at a time; the rest of a row goes to the
// baseline.
#include "process/avx2_pixels.h"
#include "reduce/reduce_rows.h"

namespace kelvane {
namespace {

using namespace avx2;

// Four times eight 32-bit answers (all bits set: white) to one byte a pixel.
__m256i pack(__m256i a, __m256i b, __m256i c, __m256i d) {
    return _mm256_packs_epi16(_mm256_packs_epi32(a, b), _mm256_packs_epi32(c, d));
}

void write_both(std::uint8_t* source, std::uint8_t* destination, __m256i white) {
    store_spread(source, white);
    store_spread(destination, white);
}

void weigh(std::uint8_t* source, std::uint8_t* destination, int count, const DarkTest& dark) {
    const Weights weights{factors(dark.blue, dark.green), factors(dark.red, 0)};
    const __m256i last_dark = _mm256_set1_epi32(dark.bound - 1);
    for (; count >= kPixels; count -= kPixels, source += 3 * kPixels, destination += 3 * kPixels) {
        const Planes p = load_planes(source);
        __m256i white[4];
        for (int quarter = 0; quarter < 4; ++quarter) {
            const int half = quarter / 2;
            const __m256i sum = avx2::weigh(weights, widen8(p.b, half), widen8(p.g, half),
                                            widen8(p.r, half), quarter % 2);
            white[quarter] = _mm256_cmpgt_epi32(sum, last_dark);
        }
        write_both(source, destination, pack(white[0], white[1], white[2], white[3]));
    }
    kBaselineReduceRows.weigh(source, destination, count, dark);
}

// The plane one pixel to the right of where it was; `before` gives the first pixel its last one.
__m256i shifted(__m256i plane, __m256i before) {
    const __m256i carry = _mm256_permute2x128_si256(before, plane, 0x21);
    return _mm256_alignr_epi8(plane, carry, 15);
}

// red x 65536 + green x 256 + blue of eight pixels.
__m256i packed(const Planes& p, int quarter) {
    const __m256i bg =
        quarter / 2 == 0 ? _mm256_unpacklo_epi8(p.b, p.g) : _mm256_unpackhi_epi8(p.b, p.g);
    return pair16(bg, widen8(p.r, quarter / 2), quarter % 2);
}

__m256i last_of(const std::uint8_t* channel) {
    return _mm256_set1_epi8(static_cast<char>(*channel));
}

void edges(std::uint8_t* source, std::uint8_t* destination, int count, int least_step,
           std::uint8_t* left) {
    const __m256i least = _mm256_set1_epi32(least_step);
    Planes before{last_of(left), last_of(left + 1), last_of(left + 2)};
    for (; count >= kPixels; count -= kPixels, source += 3 * kPixels, destination += 3 * kPixels) {
        const Planes here = load_planes(source);
        const Planes neighbour{shifted(here.b, before.b), shifted(here.g, before.g),
                               shifted(here.r, before.r)};
        for (int channel = 0; channel < 3; ++channel)
            left[channel] = source[3 * (kPixels - 1) + channel];
        __m256i white[4];
        for (int quarter = 0; quarter < 4; ++quarter) {
            const __m256i step =
                _mm256_sub_epi32(packed(here, quarter), packed(neighbour, quarter));
            white[quarter] = _mm256_cmpgt_epi32(least, _mm256_abs_epi32(step));
        }
        write_both(source, destination, pack(white[0], white[1], white[2], white[3]));
        before = here;
    }
    kBaselineReduceRows.edges(source, destination, count, least_step, left);
}

} // namespace

const ReduceRows kAvx2ReduceRows{weigh, edges};

} // namespace kelvane
