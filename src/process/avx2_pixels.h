// 32 pixels in AVX2 registers. Only for files compiled for AVX2; everything is static so that no
// other file can be handed this code.
#pragma once

#include <cstdint>
#include <immintrin.h>

namespace kelvane::avx2 {

constexpr int kPixels = 32;

/// One byte a pixel and channel; pixels 0 to 15 in the lower half, 16 to 31 in the upper.
struct Planes {
    __m256i b;
    __m256i g;
    __m256i r;
};

// Three bytes a pixel in three pieces of 16 bytes: which byte goes where (128 gives zero).
struct Shuffles {
    alignas(16) std::uint8_t gather[3][3][16];  // [channel][piece]: from pieces to a plane
    alignas(16) std::uint8_t scatter[3][3][16]; // [piece][channel]: from planes to a piece
    alignas(16) std::uint8_t spread[3][16];     // [piece]: from one plane for all channels
};

static constexpr Shuffles make_shuffles() {
    Shuffles s{};
    for (int piece = 0; piece < 3; ++piece)
        for (int channel = 0; channel < 3; ++channel)
            for (int i = 0; i < 16; ++i) {
                const int from = 3 * i + channel - 16 * piece;
                const int to = 16 * piece + i;
                s.gather[channel][piece][i] =
                    static_cast<std::uint8_t>(from >= 0 && from < 16 ? from : 128);
                s.scatter[piece][channel][i] =
                    static_cast<std::uint8_t>(to % 3 == channel ? to / 3 : 128);
                s.spread[piece][i] = static_cast<std::uint8_t>(to / 3);
            }
    return s;
}

static constexpr Shuffles kShuffles = make_shuffles();

static inline __m128i load16(const std::uint8_t* from) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
}

static inline void store16(std::uint8_t* to, __m128i value) {
    _mm_storeu_si128(reinterpret_cast<__m128i*>(to), value);
}

static inline __m256i both_halves(const std::uint8_t* table) {
    return _mm256_broadcastsi128_si256(load16(table));
}

// The halves of one register come from two groups of 16 pixels, 48 bytes apart.
static inline __m256i load_piece(const std::uint8_t* from) {
    return _mm256_inserti128_si256(_mm256_castsi128_si256(load16(from)), load16(from + 48), 1);
}

static inline void store_piece(std::uint8_t* to, __m256i value) {
    store16(to, _mm256_castsi256_si128(value));
    store16(to + 48, _mm256_extracti128_si256(value, 1));
}

static inline __m256i mix(const std::uint8_t table[3][16], __m256i a, __m256i b, __m256i c) {
    return _mm256_or_si256(_mm256_or_si256(_mm256_shuffle_epi8(a, both_halves(table[0])),
                                           _mm256_shuffle_epi8(b, both_halves(table[1]))),
                           _mm256_shuffle_epi8(c, both_halves(table[2])));
}

static inline Planes load_planes(const std::uint8_t* pixels) {
    const __m256i a = load_piece(pixels);
    const __m256i b = load_piece(pixels + 16);
    const __m256i c = load_piece(pixels + 32);
    return {mix(kShuffles.gather[0], a, b, c), mix(kShuffles.gather[1], a, b, c),
            mix(kShuffles.gather[2], a, b, c)};
}

static inline void store_planes(std::uint8_t* pixels, const Planes& p) {
    for (int piece = 0; piece < 3; ++piece)
        store_piece(pixels + 16 * piece, mix(kShuffles.scatter[piece], p.b, p.g, p.r));
}

/// One plane into all three channels.
static inline void store_spread(std::uint8_t* pixels, __m256i plane) {
    for (int piece = 0; piece < 3; ++piece)
        store_piece(pixels + 16 * piece,
                    _mm256_shuffle_epi8(plane, both_halves(kShuffles.spread[piece])));
}

// Bytes widened to 16 and 16-bit numbers to 32 bits, half of them at a time; the pack
// instructions put the results back in the same order.
static inline __m256i widen8(__m256i v, int half) {
    const __m256i zero = _mm256_setzero_si256();
    return half == 0 ? _mm256_unpacklo_epi8(v, zero) : _mm256_unpackhi_epi8(v, zero);
}

static inline __m256i pair16(__m256i a, __m256i b, int half) {
    return half == 0 ? _mm256_unpacklo_epi16(a, b) : _mm256_unpackhi_epi16(a, b);
}

/// Two 16-bit factors, `even` in the lower place.
static inline __m256i factors(int even, int odd) {
    return _mm256_set1_epi32(static_cast<int>((static_cast<unsigned>(odd) << 16) |
                                              (static_cast<unsigned>(even) & 0xFFFFu)));
}

/// Factors of the channels and a constant; the sum is at most 2^31.
struct Weights {
    __m256i bg;
    __m256i r1;
};

/// Weighted sums of 8 pixels: 16-bit channels, `half` of each register's halves.
static inline __m256i weigh(const Weights& w, __m256i b, __m256i g, __m256i r, int half) {
    const __m256i one = _mm256_set1_epi16(1);
    return _mm256_add_epi32(_mm256_madd_epi16(pair16(b, g, half), w.bg),
                            _mm256_madd_epi16(pair16(r, one, half), w.r1));
}

} // namespace kelvane::avx2
