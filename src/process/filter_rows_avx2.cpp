// The inner loops for processors with AVX2.
#include <cstdint>
#include <immintrin.h>

namespace kelvane {
namespace {

// The sums of 32 neighbouring output bytes. Unpacking works in halves of 16: sums_[i] holds
// outputs 4i .. 4i + 3 and 16 + 4i .. 16 + 4i + 3.
class PairLanes {
  public:
    static constexpr int kBytes = 32;

    void add(const std::uint8_t* a, const std::uint8_t* b, std::int16_t ca, std::int16_t cb) {
        const auto both = static_cast<std::uint32_t>(static_cast<std::uint16_t>(cb)) << 16 |
                          static_cast<std::uint16_t>(ca);
        const __m256i coefficients = _mm256_set1_epi32(static_cast<std::int32_t>(both));
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

} // namespace
} // namespace kelvane

#include "process/filter_rows.inl"

namespace kelvane {

const FilterRows& filter_rows_avx2() {
    return kRows;
}

} // namespace kelvane
