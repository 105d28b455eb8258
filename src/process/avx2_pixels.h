// 32 pixels in AVX2 registers. Only for files compiled for AVX2; everything has internal linkage,
// so that the linker cannot use this code in other files.
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
    alignas(16) std::uint8_t quads[2][16];      // four pixels, from the first or the fifth byte
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
    for (int i = 0; i < 16; ++i) {
        const int from = i % 4 == 3 ? 128 : i / 4 * 3 + i % 4;
        s.quads[0][i] = static_cast<std::uint8_t>(from);
        s.quads[1][i] = static_cast<std::uint8_t>(from == 128 ? 128 : from + 4);
    }
    return s;
}

static constexpr Shuffles kShuffles = make_shuffles();

static inline __m128i load16(const std::uint8_t* from) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
}

static inline __m256i both_halves(const std::uint8_t* table) {
    return _mm256_broadcastsi128_si256(load16(table));
}

static inline __m256i load32(const std::uint8_t* from) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
}

static inline void store32(std::uint8_t* to, __m256i value) {
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(to), value);
}

// Three registers of 16-byte pieces: the halves of each belong to the first and the second 48
// bytes of memory.
static inline void store_pieces(std::uint8_t* to, __m256i a, __m256i b, __m256i c) {
    store32(to, _mm256_permute2x128_si256(a, b, 0x20));
    store32(to + 32, _mm256_blend_epi32(c, a, 0xF0));
    store32(to + 64, _mm256_permute2x128_si256(b, c, 0x31));
}

static inline __m256i mix(const std::uint8_t table[3][16], __m256i a, __m256i b, __m256i c) {
    return _mm256_or_si256(_mm256_or_si256(_mm256_shuffle_epi8(a, both_halves(table[0])),
                                           _mm256_shuffle_epi8(b, both_halves(table[1]))),
                           _mm256_shuffle_epi8(c, both_halves(table[2])));
}

static inline Planes load_planes(const std::uint8_t* pixels) {
    const __m256i first = load32(pixels);
    const __m256i second = load32(pixels + 32);
    const __m256i third = load32(pixels + 64);
    const __m256i a = _mm256_blend_epi32(first, second, 0xF0);
    const __m256i b = _mm256_permute2x128_si256(first, third, 0x21);
    const __m256i c = _mm256_blend_epi32(second, third, 0xF0);
    return {mix(kShuffles.gather[0], a, b, c), mix(kShuffles.gather[1], a, b, c),
            mix(kShuffles.gather[2], a, b, c)};
}

static inline void store_planes(std::uint8_t* pixels, const Planes& p) {
    const auto piece = [&p](int i) { return mix(kShuffles.scatter[i], p.b, p.g, p.r); };
    store_pieces(pixels, piece(0), piece(1), piece(2));
}

/// One plane into all three channels.
static inline void store_spread(std::uint8_t* pixels, __m256i plane) {
    const auto piece = [plane](int i) {
        return _mm256_shuffle_epi8(plane, both_halves(kShuffles.spread[i]));
    };
    store_pieces(pixels, piece(0), piece(1), piece(2));
}

/// Pixels as 32-bit numbers, red x 65536 + green x 256 + blue. The halves of group q hold pixels
/// 4 q and 16 + 4 q on: packing the groups to bytes puts all into their order.
struct Quads {
    __m256i group[4];
};

static inline Quads load_quads(const std::uint8_t* pixels) {
    Quads quads;
    for (int q = 0; q < 4; ++q) {
        // The last group starts four bytes early to end with the pixels.
        const std::uint8_t* from = pixels + (q < 3 ? 12 * q : 32);
        const __m256i raw =
            _mm256_inserti128_si256(_mm256_castsi128_si256(load16(from)), load16(from + 48), 1);
        quads.group[q] = _mm256_shuffle_epi8(raw, both_halves(kShuffles.quads[q / 3]));
    }
    return quads;
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

/// Factors of the channels, 16 bits each.
struct Weights {
    __m256i br;
    __m256i g;
};

static inline Weights weights(int blue, int green, int red) {
    return {factors(blue, red), factors(green, 0)};
}

/// Weighted sums of eight pixels.
static inline __m256i weigh(const Weights& w, __m256i group) {
    const __m256i br = _mm256_and_si256(group, _mm256_set1_epi32(0x00FF00FF));
    return _mm256_add_epi32(_mm256_madd_epi16(br, w.br),
                            _mm256_madd_epi16(_mm256_srli_epi16(group, 8), w.g));
}

} // namespace kelvane::avx2
