// A pixel waits for its left neighbour and for the one in the row before. Sixteen rows advance
// together, each one column behind the row before it: then everything a pixel waits for was made
// one step earlier, by its own lane (left) or by the lane before (row before).
#include "process/palette_band.h"

#include <immintrin.h>

namespace kelvane {
namespace {

constexpr int kSteps = kBandColumns + kBandRows;
constexpr int kFront = 7; // errors loaded along with the wanted one
constexpr int kIndexBits = 4;

struct Rgb16 {
    __m256i channel[3];
};

struct Tables {
    __m256i scaled[kBandColours][3]; // entries in steps of 16, comparable with scaled pixels
    __m256i bytes[3];                // channel of entry i in byte i
    int count;
};

// Pixels as [step][row], four bytes each, and the indices chosen for them.
struct Workspace {
    alignas(32) std::uint32_t pixels[kSteps][kBandRows];
    alignas(32) std::uint8_t indices[kSteps][kBandRows];
    std::int16_t below[3][kFront + kSteps];
};

Tables make_tables(const BandPalette& palette) {
    Tables t;
    t.count = palette.count;
    for (int c = 0; c < 3; ++c) {
        alignas(16) std::uint8_t bytes[kBandColours] = {};
        for (int i = 0; i < palette.count; ++i) {
            bytes[i] = palette.bgr[i][c];
            t.scaled[i][c] = _mm256_set1_epi16(static_cast<short>(bytes[i] << kIndexBits));
        }
        t.bytes[c] =
            _mm256_broadcastsi128_si256(_mm_load_si128(reinterpret_cast<const __m128i*>(bytes)));
    }
    return t;
}

void spread_rows(const Band& band, Workspace& work) {
    for (int row = 0; row < kBandRows; ++row) {
        const std::uint8_t* pixel = band.image + band.image_step * row;
        for (int i = 0; i < band.count; ++i, pixel += 3)
            work.pixels[i + row][row] = static_cast<std::uint32_t>(pixel[0]) |
                                        static_cast<std::uint32_t>(pixel[1]) << 8 |
                                        static_cast<std::uint32_t>(pixel[2]) << 16;
    }
    for (int i = 0; i < band.count; ++i)
        for (int c = 0; c < 3; ++c)
            work.below[c][kFront + i] = band.below[i].channel[c];
}

void write_rows(const BandPalette& palette, const Band& band, const Workspace& work) {
    for (int row = 0; row < kBandRows; ++row) {
        std::uint8_t* image = band.image + band.image_step * row;
        std::uint8_t* buffer = band.buffer + band.buffer_step * row;
        for (int i = 0; i < band.count; ++i, image += 3, buffer += 3) {
            const std::uint8_t* entry = palette.bgr[work.indices[i + row][row]];
            for (int c = 0; c < 3; ++c)
                image[c] = buffer[c] = entry[c];
        }
    }
    for (int i = 0; i < band.count; ++i)
        for (int c = 0; c < 3; ++c)
            band.below[i].channel[c] = work.below[c][kFront + i];
}

Rgb16 load_pixels(const std::uint32_t* pixels) {
    const __m256i first = _mm256_load_si256(reinterpret_cast<const __m256i*>(pixels));
    const __m256i second = _mm256_load_si256(reinterpret_cast<const __m256i*>(pixels + 8));
    const __m256i byte = _mm256_set1_epi32(255);
    Rgb16 result;
    for (int c = 0; c < 3; ++c) {
        const __m256i a = _mm256_and_si256(_mm256_srli_epi32(first, 8 * c), byte);
        const __m256i b = _mm256_and_si256(_mm256_srli_epi32(second, 8 * c), byte);
        result.channel[c] = _mm256_permute4x64_epi64(_mm256_packus_epi32(a, b), 0xD8);
    }
    return result;
}

__m256i clamped_sum(__m256i a, __m256i b) {
    const __m256i sum = _mm256_add_epi16(a, b);
    return _mm256_min_epi16(_mm256_max_epi16(sum, _mm256_setzero_si256()), _mm256_set1_epi16(255));
}

// Distance x 16 + index of the closest entry; among equals the smallest index wins.
__m256i closest(const Tables& t, const Rgb16& colour) {
    Rgb16 scaled;
    for (int c = 0; c < 3; ++c)
        scaled.channel[c] = _mm256_slli_epi16(colour.channel[c], kIndexBits);
    __m256i best = _mm256_set1_epi16(-1);
    for (int i = 0; i < t.count; ++i) {
        __m256i key = _mm256_set1_epi16(static_cast<short>(i));
        for (int c = 0; c < 3; ++c)
            key = _mm256_add_epi16(
                key, _mm256_abs_epi16(_mm256_sub_epi16(scaled.channel[c], t.scaled[i][c])));
        best = _mm256_min_epu16(best, key);
    }
    return best;
}

// Division by a power of two, toward zero.
template <int Bits> __m256i divided(__m256i value) {
    const __m256i round_up = _mm256_srli_epi16(_mm256_srai_epi16(value, 15), 16 - Bits);
    return _mm256_srai_epi16(_mm256_add_epi16(value, round_up), Bits);
}

// Lane n takes lane n - 1 of `errors`, lane 0 the error at `first`.
__m256i from_row_before(__m256i errors, const std::int16_t* first) {
    const __m128i loaded = _mm_loadu_si128(reinterpret_cast<const __m128i*>(first - kFront));
    const __m256i before =
        _mm256_inserti128_si256(_mm256_castsi128_si256(loaded), _mm256_castsi256_si128(errors), 1);
    return _mm256_alignr_epi8(errors, before, 14);
}

__m256i any_of(__m256i columns, const int wanted[2]) {
    return _mm256_or_si256(
        _mm256_cmpeq_epi16(columns, _mm256_set1_epi16(static_cast<short>(wanted[0]))),
        _mm256_cmpeq_epi16(columns, _mm256_set1_epi16(static_cast<short>(wanted[1]))));
}

__m256i inside(__m256i columns, int count) {
    return _mm256_and_si256(
        _mm256_cmpgt_epi16(columns, _mm256_set1_epi16(-1)),
        _mm256_cmpgt_epi16(_mm256_set1_epi16(static_cast<short>(count)), columns));
}

// Errors on their way: by lane to the right, and to the row after.
struct Errors {
    Rgb16 right;
    Rgb16 below;
};

Errors first_errors(const Band& band) {
    Errors errors;
    for (int c = 0; c < 3; ++c) {
        alignas(32) std::int16_t lanes[kBandRows];
        for (int row = 0; row < kBandRows; ++row)
            lanes[row] = band.right[row].channel[c];
        errors.right.channel[c] = _mm256_load_si256(reinterpret_cast<const __m256i*>(lanes));
        errors.below.channel[c] = _mm256_setzero_si256();
    }
    return errors;
}

void keep_right(const Errors& errors, const Band& band) {
    for (int c = 0; c < 3; ++c) {
        alignas(32) std::int16_t lanes[kBandRows];
        _mm256_store_si256(reinterpret_cast<__m256i*>(lanes), errors.right.channel[c]);
        for (int row = 0; row < kBandRows; ++row)
            band.right[row].channel[c] = lanes[row];
    }
}

// One pixel of each row; `columns` are their places in the strip, some of them outside.
void advance(int step, __m256i columns, const Tables& tables, const Band& band, Workspace& work,
             Errors& errors) {
    const __m256i bare = any_of(columns, band.bare);
    const __m256i running = inside(columns, band.count);
    Rgb16 colour = load_pixels(work.pixels[step]);
    for (int c = 0; c < 3; ++c) {
        const __m256i below =
            from_row_before(errors.below.channel[c], &work.below[c][kFront + step]);
        const __m256i after_left =
            clamped_sum(colour.channel[c], _mm256_andnot_si256(bare, errors.right.channel[c]));
        colour.channel[c] = clamped_sum(after_left, _mm256_andnot_si256(bare, below));
    }
    const __m256i key = closest(tables, colour);
    const __m256i index = _mm256_and_si256(key, _mm256_set1_epi16(kBandColours - 1));
    const __m256i counts =
        _mm256_cmpgt_epi16(_mm256_srli_epi16(key, kIndexBits), _mm256_set1_epi16(3));
    // The upper byte of each number looks up nothing.
    const __m256i look_up = _mm256_or_si256(index, _mm256_set1_epi16(static_cast<short>(0x8000)));
    for (int c = 0; c < 3; ++c) {
        const __m256i got = _mm256_shuffle_epi8(tables.bytes[c], look_up);
        const __m256i error = _mm256_and_si256(counts, _mm256_sub_epi16(colour.channel[c], got));
        const __m256i right = divided<4>(_mm256_mullo_epi16(error, _mm256_set1_epi16(7)));
        errors.right.channel[c] = _mm256_blendv_epi8(errors.right.channel[c], right, running);
        errors.below.channel[c] = divided<2>(error);
    }
    const __m128i packed =
        _mm_packus_epi16(_mm256_castsi256_si128(index), _mm256_extracti128_si256(index, 1));
    _mm_store_si128(reinterpret_cast<__m128i*>(work.indices[step]), packed);
}

void map_band(const BandPalette& palette, const Band& band) {
    static thread_local Workspace work;
    const Tables tables = make_tables(palette);
    spread_rows(band, work);
    Errors errors = first_errors(band);
    __m256i columns =
        _mm256_setr_epi16(0, -1, -2, -3, -4, -5, -6, -7, -8, -9, -10, -11, -12, -13, -14, -15);
    for (int step = 0; step < band.count + kBandRows - 1; ++step) {
        advance(step, columns, tables, band, work, errors);
        columns = _mm256_add_epi16(columns, _mm256_set1_epi16(1));
        const int finished = step - (kBandRows - 1); // column of the last row
        if (finished < 0) continue;
        for (int c = 0; c < 3; ++c)
            work.below[c][kFront + finished] = static_cast<std::int16_t>(
                _mm256_extract_epi16(errors.below.channel[c], kBandRows - 1));
    }
    keep_right(errors, band);
    write_rows(palette, band, work);
}

} // namespace

const PaletteBands kAvx2PaletteBands{map_band};

} // namespace kelvane
