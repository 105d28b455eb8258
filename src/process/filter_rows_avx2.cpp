// The inner loops for processors with AVX2.
#include "process/filter_rows.h"
#include "process/reciprocal.inl"

#include <cstdint>
#include <immintrin.h>

namespace kelvane {
namespace {

// The sums of 32 neighbouring output bytes. Unpacking works in halves of 16: sums_[i] holds
// outputs 4i .. 4i + 3 and 16 + 4i .. 16 + 4i + 3.
class PairLanes {
  public:
    static constexpr int kBytes = 32;

    void add(const std::uint8_t* a, const std::uint8_t* b, std::int32_t both) {
        const __m256i coefficients = _mm256_set1_epi32(both);
        const __m256i zero = _mm256_setzero_si256();
        const __m256i left = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(a));
        const __m256i right = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(b));
        const __m256i low = _mm256_unpacklo_epi8(left, right);
        const __m256i high = _mm256_unpackhi_epi8(left, right);
        accumulate(sums_[0], _mm256_unpacklo_epi8(low, zero), coefficients);
        accumulate(sums_[1], _mm256_unpackhi_epi8(low, zero), coefficients);
        accumulate(sums_[2], _mm256_unpacklo_epi8(high, zero), coefficients);
        accumulate(sums_[3], _mm256_unpackhi_epi8(high, zero), coefficients);
    }

    void store(std::int32_t* to) const {
        for (int i = 0; i < 4; ++i) {
            store_half(to + 4 * i, _mm256_castsi256_si128(sums_[i]));
            store_half(to + 4 * i + 16, _mm256_extracti128_si256(sums_[i], 1));
        }
    }

  private:
    static void accumulate(__m256i& sums, __m256i samples, __m256i coefficients) {
        sums = _mm256_add_epi32(sums, _mm256_madd_epi16(samples, coefficients));
    }
    static void store_half(std::int32_t* to, __m128i half) {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to), half);
    }
    __m256i sums_[4] = {_mm256_setzero_si256(), _mm256_setzero_si256(), _mm256_setzero_si256(),
                        _mm256_setzero_si256()};
};

// The sums of 32 neighbouring output bytes, 16 bits each: `low_` holds the lower eight of either
// half, as unpacking leaves them and packing expects them.
class ByteLanes {
  public:
    static constexpr int kBytes = 32;

    // No pair's sum saturates: the magnitudes of all coefficients add up to 128 at most.
    void add(const std::uint8_t* a, const std::uint8_t* b, __m256i coefficients) {
        const __m256i left = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(a));
        const __m256i right = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(b));
        const __m256i low = _mm256_unpacklo_epi8(left, right);
        const __m256i high = _mm256_unpackhi_epi8(left, right);
        low_ = _mm256_add_epi16(low_, _mm256_maddubs_epi16(low, coefficients));
        high_ = _mm256_add_epi16(high_, _mm256_maddubs_epi16(high, coefficients));
    }

    void store(std::uint8_t* to) const { store_packed(to, low_, high_); }

    void store(std::uint8_t* to, Reciprocal by) const {
        store_packed(to, divided(low_, by), divided(high_, by));
    }

  private:
    static __m256i divided(__m256i sums, Reciprocal by) {
        const __m256i positive = _mm256_max_epi16(sums, _mm256_setzero_si256());
        const __m256i twice = _mm256_add_epi16(positive, positive);
        const __m256i multiplier = _mm256_set1_epi16(static_cast<std::int16_t>(by.multiplier));
        return _mm256_srl_epi16(_mm256_mulhi_epu16(twice, multiplier), _mm_cvtsi32_si128(by.shift));
    }
    // Packing clamps to a byte.
    static void store_packed(std::uint8_t* to, __m256i low, __m256i high) {
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(to), _mm256_packus_epi16(low, high));
    }
    __m256i low_ = _mm256_setzero_si256();
    __m256i high_ = _mm256_setzero_si256();
};

// Taps in pairs; a missing last one counts 0.
struct BytePairs {
    int count;
    std::ptrdiff_t offset[Taps::kMost / 2 + 1][2];
    __m256i coefficients[Taps::kMost / 2 + 1];
};

void pair_up(const Taps& taps, BytePairs& pairs) {
    pairs.count = (taps.count + 1) / 2;
    for (int p = 0; p < pairs.count; ++p) {
        const int left = 2 * p;
        const bool both = left + 1 < taps.count;
        const int right = both ? left + 1 : left;
        pairs.offset[p][0] = taps.offset[left];
        pairs.offset[p][1] = taps.offset[right];
        const int low = static_cast<std::uint8_t>(taps.coefficient[left]);
        const int high = both ? static_cast<std::uint8_t>(taps.coefficient[right]) : 0;
        pairs.coefficients[p] = _mm256_set1_epi16(static_cast<std::int16_t>(low | high << 8));
    }
}

// `Pairs` is their number, 0 when it is only known at run time. The last vector overlaps the one
// before.
template <int Pairs>
void sum_pairs(const std::uint8_t* from, std::uint8_t* to, int count, const BytePairs& pairs,
               std::int32_t weight) {
    const int pair_count = Pairs > 0 ? Pairs : pairs.count;
    const Reciprocal by = reciprocal_of(weight);
    const int last = count - ByteLanes::kBytes;
    for (int k = 0; k < count; k += ByteLanes::kBytes) {
        const int at = k < last ? k : last;
        ByteLanes lanes;
#pragma GCC unroll 5
        for (int p = 0; p < pair_count; ++p)
            lanes.add(from + at + pairs.offset[p][0], from + at + pairs.offset[p][1],
                      pairs.coefficients[p]);
        if (weight == 1)
            lanes.store(to + at);
        else
            lanes.store(to + at, by);
    }
}

void few(const std::uint8_t* from, std::uint8_t* to, int count, const Taps& taps);
constexpr decltype(FilterRows::few) kFew = few;

} // namespace
} // namespace kelvane

#include "process/filter_rows.inl"

namespace kelvane {
namespace {

void few(const std::uint8_t* from, std::uint8_t* to, int count, const Taps& taps) {
    if (count < ByteLanes::kBytes) {
        wide(from, to, count, taps);
        return;
    }
    BytePairs pairs;
    pair_up(taps, pairs);
    switch (pairs.count) {
    case 1:
        return sum_pairs<1>(from, to, count, pairs, taps.weight);
    case 2:
        return sum_pairs<2>(from, to, count, pairs, taps.weight);
    case 3:
        return sum_pairs<3>(from, to, count, pairs, taps.weight);
    case 4:
        return sum_pairs<4>(from, to, count, pairs, taps.weight);
    case 5:
        return sum_pairs<5>(from, to, count, pairs, taps.weight);
    default:
        return sum_pairs<0>(from, to, count, pairs, taps.weight);
    }
}

} // namespace

const FilterRows kAvx2FilterRows = kRows;

} // namespace kelvane
