// Tone and colour for processors with AVX2, 32 pixels at a time; the rest of a row goes to the
// baseline.
#include "process/avx2_pixels.h"
#include "process/point_rows.h"

namespace kelvane {
namespace {

using namespace avx2;

// Eight luminances plus 2048. At that size single precision steps by 1 / 4096: the error of the
// product, below a quarter of that, vanishes from exact halves, and sums that miss a half miss it
// by at least 1 / 1000. So the conversion sees true halves only and rounds them to even.
__m256i luminance8(const Weights& w, __m256i group) {
    const __m256 sum = _mm256_cvtepi32_ps(weigh(w, group));
    const __m256 scaled = _mm256_mul_ps(sum, _mm256_set1_ps(0.001f));
    return _mm256_cvtps_epi32(_mm256_add_ps(scaled, _mm256_set1_ps(2048)));
}

__m256i luminance32(const Quads& p) {
    const Weights w = weights(71, 707, 222);
    const __m256i low = _mm256_set1_epi16(255);
    const auto pair = [&](int q) {
        const __m256i both =
            _mm256_packs_epi32(luminance8(w, p.group[q]), luminance8(w, p.group[q + 1]));
        return _mm256_and_si256(both, low);
    };
    return _mm256_packus_epi16(pair(0), pair(2));
}

void grey(std::uint8_t* pixels, int count) {
    for (; count >= kPixels; count -= kPixels, pixels += 3 * kPixels)
        store_spread(pixels, luminance32(load_quads(pixels)));
    kBaselinePointRows.grey(pixels, count);
}

void luminance(const std::uint8_t* pixels, std::uint8_t* greys, int count) {
    for (; count >= kPixels; count -= kPixels, pixels += 3 * kPixels, greys += kPixels)
        _mm256_storeu_si256(reinterpret_cast<__m256i*>(greys), luminance32(load_quads(pixels)));
    kBaselinePointRows.luminance(pixels, greys, count);
}

void spread(const std::uint8_t* greys, std::uint8_t* pixels, int count) {
    for (; count >= kPixels; count -= kPixels, pixels += 3 * kPixels, greys += kPixels)
        store_spread(pixels, _mm256_loadu_si256(reinterpret_cast<const __m256i*>(greys)));
    kBaselinePointRows.spread(greys, pixels, count);
}

void invert(std::uint8_t* pixels, int count) {
    const __m256i ones = _mm256_set1_epi8(-1);
    for (; count >= kPixels; count -= kPixels, pixels += 3 * kPixels)
        for (int piece = 0; piece < 96; piece += 32)
            store32(pixels + piece, _mm256_xor_si256(load32(pixels + piece), ones));
    kBaselinePointRows.invert(pixels, count);
}

// n / 255 as the baseline computes it.
__m256i scaled16(__m256i bytes, __m256i level) {
    const __m256i n = _mm256_mullo_epi16(bytes, level);
    const __m256i sum =
        _mm256_add_epi16(_mm256_add_epi16(n, _mm256_set1_epi16(1)), _mm256_srli_epi16(n, 8));
    return _mm256_srli_epi16(sum, 8);
}

void fade(std::uint8_t* pixels, int count, int level) {
    const __m256i factor = _mm256_set1_epi16(static_cast<std::int16_t>(level));
    for (; count >= kPixels; count -= kPixels, pixels += 3 * kPixels)
        for (int piece = 0; piece < 96; piece += 32) {
            const __m256i bytes = load32(pixels + piece);
            store32(pixels + piece, _mm256_packus_epi16(scaled16(widen8(bytes, 0), factor),
                                                        scaled16(widen8(bytes, 1), factor)));
        }
    kBaselinePointRows.fade(pixels, count, level);
}

struct Colour {
    __m256 r;
    __m256 g;
    __m256 b;
};

// `hue_zero` marks the greys, whose hue and saturation are 0, and the pure reds.
struct Hls {
    __m256 H;
    __m256 L;
    __m256 S;
    __m256 hue_zero;
};

__m256 choose(__m256 mask, __m256 yes, __m256 no) {
    return _mm256_blendv_ps(no, yes, mask);
}

__m256 constant(float value) {
    return _mm256_set1_ps(value);
}

Hls to_hls(const Colour& c) {
    const __m256 max = _mm256_max_ps(_mm256_max_ps(c.r, c.g), c.b);
    const __m256 min = _mm256_min_ps(_mm256_min_ps(c.r, c.g), c.b);
    const __m256 sum = _mm256_add_ps(max, min);
    const __m256 range = _mm256_sub_ps(max, min);
    const __m256 coloured = _mm256_cmp_ps(max, min, _CMP_NEQ_OQ);
    const __m256 L = _mm256_mul_ps(sum, constant(0.5f));
    const __m256 dark = _mm256_cmp_ps(L, constant(0.5f), _CMP_LE_OQ);
    const __m256 rest = _mm256_sub_ps(_mm256_sub_ps(constant(2), max), min);
    const __m256 S = _mm256_div_ps(range, choose(dark, sum, rest));

    const __m256 is_red = _mm256_cmp_ps(c.r, max, _CMP_EQ_OQ);
    const __m256 is_green = _mm256_cmp_ps(c.g, max, _CMP_EQ_OQ);
    const __m256 step = choose(is_red, _mm256_sub_ps(c.g, c.b),
                               choose(is_green, _mm256_sub_ps(c.b, c.r), _mm256_sub_ps(c.r, c.g)));
    const __m256 base = choose(is_red, constant(0), choose(is_green, constant(2), constant(4)));
    const __m256 H = _mm256_and_ps(coloured, _mm256_add_ps(base, _mm256_div_ps(step, range)));
    return {H, L, _mm256_and_ps(coloured, S), _mm256_cmp_ps(H, constant(0), _CMP_EQ_OQ)};
}

// Between two pure hues one channel is Max, one Min and one in between. Around each primary hue
// `base` that third channel lies Min + |H - base| D, on one side or the other.
Colour to_rgb(__m256 H, __m256 L, __m256 S) {
    const __m256 one = constant(1);
    const __m256 dark = _mm256_cmp_ps(L, constant(0.5f), _CMP_LE_OQ);
    const __m256 low = _mm256_mul_ps(_mm256_sub_ps(one, S), L);
    const __m256 high = _mm256_sub_ps(L, _mm256_mul_ps(S, _mm256_sub_ps(one, L)));
    const __m256 min = choose(dark, low, high);
    const __m256 max = _mm256_sub_ps(_mm256_mul_ps(constant(2), L), min);
    const __m256 range = _mm256_sub_ps(max, min);

    const __m256 red = _mm256_cmp_ps(H, one, _CMP_LT_OQ);
    const __m256 blue = _mm256_cmp_ps(H, constant(3), _CMP_GE_OQ);
    const __m256 base = choose(red, constant(0), choose(blue, constant(4), constant(2)));
    const __m256 offset = _mm256_sub_ps(H, base);
    const __m256 distance = _mm256_andnot_ps(constant(-0.0f), offset);
    const __m256 between = _mm256_add_ps(min, _mm256_mul_ps(distance, range));
    const __m256 before = choose(offset, between, min); // by the sign bit
    const __m256 after = choose(offset, min, between);
    return {choose(red, max, choose(blue, after, before)),
            choose(red, after, choose(blue, before, max)),
            choose(red, before, choose(blue, max, after))};
}

__m256 to_float(__m256i bytes, int quarter) {
    const __m256i wide = pair16(widen8(bytes, quarter / 2), _mm256_setzero_si256(), quarter % 2);
    return _mm256_div_ps(_mm256_cvtepi32_ps(wide), constant(255));
}

__m256i to_int(__m256 channel) {
    return _mm256_cvtps_epi32(_mm256_mul_ps(channel, constant(255)));
}

__m256i pack(const __m256i quarters[4]) {
    return _mm256_packus_epi16(_mm256_packs_epi32(quarters[0], quarters[1]),
                               _mm256_packs_epi32(quarters[2], quarters[3]));
}

template <typename Change> void change_hls(std::uint8_t* pixels, Change change) {
    const Planes from = load_planes(pixels);
    __m256i r[4];
    __m256i g[4];
    __m256i b[4];
    for (int quarter = 0; quarter < 4; ++quarter) {
        const Colour before{to_float(from.r, quarter), to_float(from.g, quarter),
                            to_float(from.b, quarter)};
        const Colour after = change(to_hls(before));
        r[quarter] = to_int(after.r);
        g[quarter] = to_int(after.g);
        b[quarter] = to_int(after.b);
    }
    store_planes(pixels, {pack(b), pack(g), pack(r)});
}

void lighten(std::uint8_t* pixels, int count, float factor) {
    const __m256 factors8 = constant(factor);
    for (; count >= kPixels; count -= kPixels, pixels += 3 * kPixels)
        change_hls(pixels, [factors8](const Hls& hls) {
            const __m256 L = _mm256_min_ps(_mm256_mul_ps(hls.L, factors8), constant(1));
            return to_rgb(hls.H, L, hls.S);
        });
    kBaselinePointRows.lighten(pixels, count, factor);
}

void colourise(std::uint8_t* pixels, int count, float hue) {
    const __m256 hue8 = constant(hue);
    for (; count >= kPixels; count -= kPixels, pixels += 3 * kPixels)
        change_hls(pixels, [hue8](const Hls& hls) {
            return to_rgb(hue8, hls.L, choose(hls.hue_zero, constant(0.5f), hls.S));
        });
    kBaselinePointRows.colourise(pixels, count, hue);
}

} // namespace

const PointRows kAvx2PointRows{grey, luminance, spread, invert, fade, lighten, colourise};

} // namespace kelvane
