// Mirroring and turning for processors with AVX2; the rest goes to the baseline.
#include "process/avx2_pixels.h"
#include "process/geometry_rows.h"

namespace kelvane {
namespace {

using namespace avx2;

// Four pixels, no byte more.
__m128i load12(const std::uint8_t* from) {
    int last;
    __builtin_memcpy(&last, from + 8, 4);
    return _mm_insert_epi32(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(from)), last, 2);
}

void store12(std::uint8_t* to, __m128i pixels) {
    _mm_storel_epi64(reinterpret_cast<__m128i*>(to), pixels);
    const int last = _mm_extract_epi32(pixels, 2);
    __builtin_memcpy(to + 8, &last, 4);
}

void reverse(const std::uint8_t* from, std::uint8_t* to, int count) {
    const __m256i backwards =
        _mm256_setr_epi8(15, 14, 13, 12, 11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0, 15, 14, 13, 12, 11,
                         10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0);
    const auto turned = [&](__m256i plane) {
        return _mm256_permute4x64_epi64(_mm256_shuffle_epi8(plane, backwards), 0x4E);
    };
    to += std::ptrdiff_t{3} * count;
    for (; count >= kPixels; count -= kPixels, from += 3 * kPixels) {
        const Planes p = load_planes(from);
        store_planes(to -= 3 * kPixels, {turned(p.b), turned(p.g), turned(p.r)});
    }
    kBaselineGeometryRows.reverse(from, to - std::ptrdiff_t{3} * count, count);
}

// Four by four pixels.
void transpose4(const std::uint8_t* from, std::ptrdiff_t from_step, std::uint8_t* to,
                std::ptrdiff_t to_step) {
    const __m128i spread = load16(kShuffles.quads[0]);
    const __m128i gather = _mm_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1);
    __m128i row[4];
    for (int y = 0; y < 4; ++y)
        row[y] = _mm_shuffle_epi8(load12(from + y * from_step), spread);
    const __m128i low01 = _mm_unpacklo_epi32(row[0], row[1]);
    const __m128i low23 = _mm_unpacklo_epi32(row[2], row[3]);
    const __m128i high01 = _mm_unpackhi_epi32(row[0], row[1]);
    const __m128i high23 = _mm_unpackhi_epi32(row[2], row[3]);
    const __m128i column[4] = {_mm_unpacklo_epi64(low01, low23), _mm_unpackhi_epi64(low01, low23),
                               _mm_unpacklo_epi64(high01, high23),
                               _mm_unpackhi_epi64(high01, high23)};
    for (int x = 0; x < 4; ++x)
        store12(to + x * to_step, _mm_shuffle_epi8(column[x], gather));
}

void transpose(const std::uint8_t* from, std::ptrdiff_t from_step, std::uint8_t* to,
               std::ptrdiff_t to_step, int columns, int rows) {
    const int whole_columns = columns / 4 * 4;
    const int whole_rows = rows / 4 * 4;
    for (int x = 0; x < whole_columns; x += 4)
        for (int y = 0; y < whole_rows; y += 4)
            transpose4(from + 3 * x + y * from_step, from_step, to + x * to_step + 3 * y, to_step);
    kBaselineGeometryRows.transpose(from + 3 * whole_columns, from_step,
                                    to + whole_columns * to_step, to_step, columns - whole_columns,
                                    whole_rows);
    kBaselineGeometryRows.transpose(from + whole_rows * from_step, from_step, to + 3 * whole_rows,
                                    to_step, columns, rows - whole_rows);
}

} // namespace

const GeometryRows kAvx2GeometryRows{reverse, transpose};

} // namespace kelvane
