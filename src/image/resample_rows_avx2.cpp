// Resampling's inner loops for processors with AVX2: 16-bit lanes in place of doubles.
//
// a + w (b - a) is computed to 2^-16, with an error below 1.1 of these units. Away from the halves
// that rounds like the double computation, whose own error is far smaller. The few bytes on or
// beside a half are computed in double precision.
#include "image/resample_rows.inl"

#include <immintrin.h>

namespace kelvane {
namespace {

constexpr int kStep = 32; // bytes at a time

// Above so many doubtful bytes of a step, the whole step is computed in double precision.
constexpr int kFewDoubts = 6;

struct Lanes {
    __m256i value;
    __m256i doubtful; // -1 where the value lies on a half or beside one
};

struct LaneWeights {
    __m256i high;
    __m256i low;
    __m256i second;
};

inline __m256i sixteen_bytes(const std::uint8_t* bytes) {
    return _mm256_cvtepu8_epi16(_mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes)));
}

inline __m256i sixteen_words(const std::int16_t* words) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(words));
}

// The product's whole part and its fraction are the high and the low half of one multiplication.
// The fraction, less one half, is corrected by the weight's low part; it may saturate, its sign
// stays right. A sign that says "at least one half" rounds up.
inline Lanes blended_lanes(__m256i a, __m256i b, const LaneWeights& weight) {
    const __m256i half = _mm256_set1_epi16(-0x8000);
    const __m256i difference = _mm256_sub_epi16(b, a);
    const __m256i base = _mm256_add_epi16(a, _mm256_and_si256(difference, weight.second));
    const __m256i whole = _mm256_mulhi_epi16(difference, weight.high);
    const __m256i fraction =
        _mm256_adds_epi16(_mm256_xor_si256(_mm256_mullo_epi16(difference, weight.high), half),
                          _mm256_mulhi_epi16(difference, weight.low));
    const __m256i up = _mm256_cmpgt_epi16(fraction, _mm256_set1_epi16(-1));
    // The correction is rounded down: a true half shows as 0 or as -1.
    const __m256i doubtful =
        _mm256_cmpeq_epi16(_mm256_xor_si256(fraction, up), _mm256_set1_epi16(-1));
    return {_mm256_sub_epi16(_mm256_add_epi16(base, whole), up), doubtful};
}

// Stores 32 bytes; tells by one bit each which of them are doubtful.
inline unsigned store_step(const Lanes& first, const Lanes& second, std::uint8_t* to) {
    const auto in_order = [](__m256i packed) {
        return _mm256_permute4x64_epi64(packed, _MM_SHUFFLE(3, 1, 2, 0));
    };
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(to),
                        in_order(_mm256_packus_epi16(first.value, second.value)));
    const __m256i doubtful = _mm256_packs_epi16(first.doubtful, second.doubtful);
    if (_mm256_testz_si256(doubtful, doubtful) != 0) return 0;
    return static_cast<unsigned>(_mm256_movemask_epi8(in_order(doubtful)));
}

void one_weight(const std::uint8_t* a, const std::uint8_t* b, std::uint8_t* to, int count,
                double weight) {
    const FixedWeight fixed = fixed_weight(weight);
    const LaneWeights lanes{_mm256_set1_epi16(fixed.high), _mm256_set1_epi16(fixed.low),
                            _mm256_set1_epi16(fixed.second)};
    int k = 0;
    for (; k + kStep <= count; k += kStep) {
        unsigned doubtful = store_step(
            blended_lanes(sixteen_bytes(a + k), sixteen_bytes(b + k), lanes),
            blended_lanes(sixteen_bytes(a + k + 16), sixteen_bytes(b + k + 16), lanes), to + k);
        if (__builtin_popcount(doubtful) > kFewDoubts) {
            exact_one_weight(a + k, b + k, to + k, kStep, weight);
            continue;
        }
        for (; doubtful != 0; doubtful &= doubtful - 1) {
            const int i = k + __builtin_ctz(doubtful);
            to[i] = blended(a[i], b[i], weight);
        }
    }
    exact_one_weight(a + k, b + k, to + k, count - k, weight);
}

inline LaneWeights sixteen_weights(const RowWeights& weights, int k) {
    return {sixteen_words(weights.high + k), sixteen_words(weights.low + k),
            sixteen_words(weights.second + k)};
}

void many_weights(const std::uint8_t* a, const std::uint8_t* b, std::uint8_t* to, int count,
                  const RowWeights& weights) {
    int k = 0;
    for (; k + kStep <= count; k += kStep) {
        unsigned doubtful = store_step(
            blended_lanes(sixteen_bytes(a + k), sixteen_bytes(b + k), sixteen_weights(weights, k)),
            blended_lanes(sixteen_bytes(a + k + 16), sixteen_bytes(b + k + 16),
                          sixteen_weights(weights, k + 16)),
            to + k);
        if (__builtin_popcount(doubtful) > kFewDoubts) {
            exact_many_weights(a + k, b + k, to + k, kStep, weights.exact + k);
            continue;
        }
        for (; doubtful != 0; doubtful &= doubtful - 1) {
            const int i = k + __builtin_ctz(doubtful);
            to[i] = blended(a[i], b[i], weights.exact[i]);
        }
    }
    exact_many_weights(a + k, b + k, to + k, count - k, weights.exact + k);
}

constexpr ResampleRows kRows{one_weight, many_weights};

} // namespace

const ResampleRows kAvx2ResampleRows = kRows;

} // namespace kelvane
