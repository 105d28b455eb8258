// The reduction for uneven light for processors with AVX2; the rest of a row goes to the baseline.
#include "reduce/local_rows.h"

#include <immintrin.h>

namespace kelvane {
namespace {

constexpr int kLanes = 8; // 32-bit numbers in a register

__m256i load(const std::uint32_t* from) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
}

void store(void* to, __m256i value) {
    _mm256_storeu_si256(static_cast<__m256i*>(to), value);
}

// Eight bytes as 32-bit numbers.
__m256i widened(const std::uint8_t* bytes) {
    return _mm256_cvtepu8_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(bytes)));
}

// Each lane plus all lanes below it.
__m256i running_sums(__m256i v) {
    v = _mm256_add_epi32(v, _mm256_slli_si256(v, 4));
    v = _mm256_add_epi32(v, _mm256_slli_si256(v, 8));
    const __m256i lower_half = _mm256_permute2x128_si256(v, v, 0x08); // moved up, 0 below
    return _mm256_add_epi32(v, _mm256_shuffle_epi32(lower_half, 0xFF));
}

void advance(const std::uint8_t* enters, const std::uint8_t* leaves, std::uint32_t* columns,
             std::uint32_t* sums, int count) {
    __m256i before = _mm256_set1_epi32(static_cast<int>(sums[0]));
    for (; count >= kLanes;
         count -= kLanes, enters += kLanes, leaves += kLanes, columns += kLanes, sums += kLanes) {
        const __m256i change = _mm256_sub_epi32(widened(enters), widened(leaves));
        const __m256i column = _mm256_add_epi32(load(columns), change);
        store(columns, column);
        const __m256i all = _mm256_add_epi32(before, running_sums(column));
        store(sums + 1, all);
        before = _mm256_permutevar8x32_epi32(all, _mm256_set1_epi32(kLanes - 1));
    }
    kBaselineLocalRows.advance(enters, leaves, columns, sums, count);
}

void compare(const std::uint8_t* greys, const std::uint32_t* sums, int size, int offset,
             std::uint8_t* light, int count) {
    constexpr int kPixels = 4 * kLanes;
    const __m256i area = _mm256_set1_epi32(size * size);
    const __m256i add = _mm256_set1_epi32(offset);
    const auto eight = [&](int x) {
        const __m256i grey = _mm256_add_epi32(widened(greys + x), add);
        const __m256i neighbourhood = _mm256_sub_epi32(load(sums + x + size), load(sums + x));
        return _mm256_cmpgt_epi32(_mm256_mullo_epi32(grey, area), neighbourhood);
    };
    // Packing leaves quarters of both halves in turn.
    const __m256i order = _mm256_setr_epi32(0, 4, 1, 5, 2, 6, 3, 7);
    for (; count >= kPixels;
         count -= kPixels, greys += kPixels, sums += kPixels, light += kPixels) {
        const __m256i packed = _mm256_packs_epi16(_mm256_packs_epi32(eight(0), eight(8)),
                                                  _mm256_packs_epi32(eight(16), eight(24)));
        store(light, _mm256_permutevar8x32_epi32(packed, order));
    }
    kBaselineLocalRows.compare(greys, sums, size, offset, light, count);
}

} // namespace

const LocalRows kAvx2LocalRows{advance, compare};

} // namespace kelvane
