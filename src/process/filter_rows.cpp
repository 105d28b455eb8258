// The inner loops for every processor, and the choice between the levels.
#include "process/filter_rows.h"
#include "base/cpu.h"

#include <cstdint>
#include <emmintrin.h>

namespace kelvane {
namespace {

// The sums of 16 neighbouring output bytes: sums_[i] holds outputs 4i .. 4i + 3.
class PairLanes {
  public:
    static constexpr int kBytes = 16;

    void add(const std::uint8_t* a, const std::uint8_t* b, std::int32_t both) {
        const __m128i coefficients = _mm_set1_epi32(both);
        const __m128i zero = _mm_setzero_si128();
        const __m128i left = _mm_loadu_si128(reinterpret_cast<const __m128i*>(a));
        const __m128i right = _mm_loadu_si128(reinterpret_cast<const __m128i*>(b));
        const __m128i low = _mm_unpacklo_epi8(left, right);
        const __m128i high = _mm_unpackhi_epi8(left, right);
        accumulate(sums_[0], _mm_unpacklo_epi8(low, zero), coefficients);
        accumulate(sums_[1], _mm_unpackhi_epi8(low, zero), coefficients);
        accumulate(sums_[2], _mm_unpacklo_epi8(high, zero), coefficients);
        accumulate(sums_[3], _mm_unpackhi_epi8(high, zero), coefficients);
    }

    void store(std::int32_t* to) const {
        for (int i = 0; i < 4; ++i)
            _mm_storeu_si128(reinterpret_cast<__m128i*>(to + 4 * i), sums_[i]);
    }

  private:
    static void accumulate(__m128i& sums, __m128i samples, __m128i coefficients) {
        sums = _mm_add_epi32(sums, _mm_madd_epi16(samples, coefficients));
    }
    __m128i sums_[4] = {_mm_setzero_si128(), _mm_setzero_si128(), _mm_setzero_si128(),
                        _mm_setzero_si128()};
};

constexpr decltype(FilterRows::few) kFew = nullptr;

} // namespace
} // namespace kelvane

#include "process/filter_rows.inl"

namespace kelvane {

const FilterRows kBaselineFilterRows = kRows;

const FilterRows& filter_rows() {
    return fastest(kBaselineFilterRows, kAvx2FilterRows);
}

} // namespace kelvane
