// Reductions for processors with AVX2, 32 pixels at a time; the rest of a row goes to the
// baseline.
#include "process/avx2_pixels.h"
#include "reduce/reduce_rows.h"

namespace kelvane {
namespace {

using namespace avx2;

// 32-bit answers (all bits set: white) as one byte a pixel, written to both pictures.
void write_both(std::uint8_t* source, std::uint8_t* destination, const Quads& white) {
    const __m256i plane = _mm256_packs_epi16(_mm256_packs_epi32(white.group[0], white.group[1]),
                                             _mm256_packs_epi32(white.group[2], white.group[3]));
    store_spread(source, plane);
    store_spread(destination, plane);
}

void weigh(std::uint8_t* source, std::uint8_t* destination, int count, const DarkTest& dark) {
    const Weights w = weights(dark.blue, dark.green, dark.red);
    const __m256i last_dark = _mm256_set1_epi32(dark.bound - 1);
    for (; count >= kPixels; count -= kPixels, source += 3 * kPixels, destination += 3 * kPixels) {
        const Quads pixels = load_quads(source);
        Quads white;
        for (int q = 0; q < 4; ++q)
            white.group[q] = _mm256_cmpgt_epi32(avx2::weigh(w, pixels.group[q]), last_dark);
        write_both(source, destination, white);
    }
    kBaselineReduceRows.weigh(source, destination, count, dark);
}

void edges(std::uint8_t* source, std::uint8_t* destination, int count, int least_step,
           std::uint8_t* left) {
    const __m256i least = _mm256_set1_epi32(least_step);
    __m256i last = _mm256_set1_epi32(left[2] << 16 | left[1] << 8 | left[0]);
    for (; count >= kPixels; count -= kPixels, source += 3 * kPixels, destination += 3 * kPixels) {
        const Quads pixels = load_quads(source);
        for (int channel = 0; channel < 3; ++channel)
            left[channel] = source[3 * (kPixels - 1) + channel];
        // The pixels before each group stand in the group before, those before the first in the
        // last: its upper half before this block, its lower half in it.
        __m256i before = _mm256_permute2x128_si256(last, pixels.group[3], 0x21);
        last = pixels.group[3];
        Quads white;
        for (int q = 0; q < 4; ++q) {
            const __m256i neighbour = _mm256_alignr_epi8(pixels.group[q], before, 12);
            const __m256i step = _mm256_sub_epi32(pixels.group[q], neighbour);
            white.group[q] = _mm256_cmpgt_epi32(least, _mm256_abs_epi32(step));
            before = pixels.group[q];
        }
        write_both(source, destination, white);
    }
    kBaselineReduceRows.edges(source, destination, count, least_step, left);
}

} // namespace

const ReduceRows kAvx2ReduceRows{weigh, edges};

} // namespace kelvane
