// The inner loops, compiled once per processor level: everything has internal linkage and nothing
// comes from the standard library, so that the linker cannot merge code of different levels. The
// file that includes this one provides `PairLanes`, the level's vector of sums, and `kFew`, its
// entry of that name.
//
// Most loops are plain and left to the compiler's vectorizer; the arithmetic is chosen to fit the
// narrowest lanes that hold it.

#include "process/filter_rows.h"
#include "process/reciprocal.inl"

namespace kelvane {
namespace {

using Byte = std::uint8_t;

Byte clamped(std::int32_t value) {
    return static_cast<Byte>(value < 0 ? 0 : value > 255 ? 255 : value);
}

// Toward zero and clamped at 0 are one: a negative sum gives 0.
Byte divided(std::int16_t sum, Reciprocal by) {
    const auto twice = static_cast<std::uint16_t>(sum < 0 ? 0 : 2 * sum);
    const auto upper = static_cast<std::uint16_t>((std::uint32_t{twice} * by.multiplier) >> 16);
    const auto value = static_cast<std::uint16_t>(upper >> by.shift);
    return static_cast<Byte>(value > 255 ? 255 : value);
}

// A kernel is applied column by column: first the vertical sums over a span, once for each
// different column, then the sum across.
using Sums = std::int16_t[kLongestSpan + 3 * NarrowKernel::kMost];

// The vertical sums of the columns `first` and, for Count 2, its neighbour.
template <int Size, int Count>
void sum_columns(const Byte* from, std::ptrdiff_t row_step, int count, const NarrowKernel& kernel,
                 int first, Sums* sums) {
    const Byte* row[Size];
    for (int j = 0; j < Size; ++j)
        row[j] = from + (j - Size / 2) * row_step;
    const std::int16_t* cell = kernel.cell[first];
    const std::int16_t* next_cell = kernel.cell[first + Count - 1];
    std::int16_t* __restrict here = sums[first];
    std::int16_t* __restrict there = sums[first + Count - 1];
    for (int k = 0; k < count; ++k) {
        std::int16_t sum = 0;
        std::int16_t next_sum = 0;
#pragma GCC unroll 9
        for (int j = 0; j < Size; ++j) {
            sum = static_cast<std::int16_t>(sum + cell[j] * row[j][k]);
            if constexpr (Count == 2)
                next_sum = static_cast<std::int16_t>(next_sum + next_cell[j] * row[j][k]);
        }
        here[k] = sum;
        if constexpr (Count == 2) there[k] = next_sum;
    }
}

template <int Size>
void sum_across(const Sums* sums, Byte* __restrict to, int count, const NarrowKernel& kernel) {
    const std::int16_t* column[Size];
    for (int i = 0; i < Size; ++i)
        column[i] = sums[kernel.column_at[i]] + 3 * i;
    const auto sum_at = [&](int k) {
        std::int16_t sum = 0;
#pragma GCC unroll 9
        for (int i = 0; i < Size; ++i)
            sum = static_cast<std::int16_t>(sum + column[i][k]);
        return sum;
    };
    const Reciprocal by = reciprocal_of(kernel.weight);
    if (kernel.weight == 1)
        for (int k = 0; k < count; ++k)
            to[k] = clamped(sum_at(k));
    else
        for (int k = 0; k < count; ++k)
            to[k] = divided(sum_at(k), by);
}

template <int Size>
void narrow_of(const Byte* from, std::ptrdiff_t row_step, Byte* to, int count,
               const NarrowKernel& kernel) {
    alignas(32) Sums sums[Size];
    const Byte* first = from - 3 * (Size / 2);
    const int reach = count + 3 * (Size - 1);
    int done = 0;
    if constexpr (Size > 1)
        for (; done + 2 <= kernel.columns; done += 2)
            sum_columns<Size, 2>(first, row_step, reach, kernel, done, sums);
    if (done < kernel.columns) sum_columns<Size, 1>(first, row_step, reach, kernel, done, sums);
    sum_across<Size>(sums, to, count, kernel);
}

void narrow(const Byte* from, std::ptrdiff_t row_step, Byte* to, int count,
            const NarrowKernel& kernel) {
    switch (kernel.size) {
    case 1:
        return narrow_of<1>(from, row_step, to, count, kernel);
    case 3:
        return narrow_of<3>(from, row_step, to, count, kernel);
    case 5:
        return narrow_of<5>(from, row_step, to, count, kernel);
    case 7:
        return narrow_of<7>(from, row_step, to, count, kernel);
    default:
        return narrow_of<9>(from, row_step, to, count, kernel);
    }
}

// A coefficient's lower or upper half; the whole is lower + 65536 x upper.
std::int16_t lower_half(std::int32_t coefficient) {
    return static_cast<std::int16_t>(coefficient);
}
std::int16_t upper_half(std::int32_t coefficient) {
    const std::uint32_t rest = static_cast<std::uint32_t>(coefficient) -
                               static_cast<std::uint32_t>(std::int32_t{lower_half(coefficient)});
    return static_cast<std::int16_t>(rest >> 16);
}

// Taps with 16-bit coefficients in pairs, as the processor multiplies and adds them. The first
// coefficient of a pair stands in the lower half; a missing second one is 0.
struct ShortPairs {
    int count = 0;
    std::ptrdiff_t offset[Taps::kMost / 2 + 1][2];
    std::int32_t coefficients[Taps::kMost / 2 + 1];
};

template <typename Half> ShortPairs short_pairs(const Taps& taps, Half half) {
    ShortPairs pairs;
    bool second = false;
    for (int t = 0; t < taps.count; ++t) {
        const std::uint32_t value = static_cast<std::uint16_t>(half(taps.coefficient[t]));
        if (value == 0) continue;
        if (second) {
            const int pair = pairs.count - 1;
            pairs.offset[pair][1] = taps.offset[t];
            pairs.coefficients[pair] = static_cast<std::int32_t>(
                static_cast<std::uint32_t>(pairs.coefficients[pair]) | value << 16);
        } else {
            pairs.offset[pairs.count][0] = taps.offset[t];
            pairs.offset[pairs.count][1] = taps.offset[t];
            pairs.coefficients[pairs.count] = static_cast<std::int32_t>(value);
            ++pairs.count;
        }
        second = !second;
    }
    return pairs;
}

void sum_taps(const Byte* from, const ShortPairs& pairs, std::int32_t* sums, int count) {
    int k = 0;
    for (; k + PairLanes::kBytes <= count; k += PairLanes::kBytes) {
        PairLanes lanes;
#pragma GCC unroll 4
        for (int p = 0; p < pairs.count; ++p)
            lanes.add(from + k + pairs.offset[p][0], from + k + pairs.offset[p][1],
                      pairs.coefficients[p]);
        lanes.store(sums + k);
    }
    for (; k < count; ++k) {
        std::uint32_t sum = 0;
        for (int p = 0; p < pairs.count; ++p) {
            const std::int32_t both = pairs.coefficients[p];
            sum += static_cast<std::uint32_t>(lower_half(both) * from[k + pairs.offset[p][0]] +
                                              (both >> 16) * from[k + pairs.offset[p][1]]);
        }
        sums[k] = static_cast<std::int32_t>(sum);
    }
}

// The quotient of a sum s and a weight w, toward zero and clamped, from (|s| + 1/2) / |w|, which is
// at least 1 / 2|w| away from every whole number. The roundings of the reciprocal and the product
// move it by less:
// - a double's by less than 2^-20 / |w|, |s| and |w| being at most 2^31;
// - a float's, for |w| up to 2^14: below |s| = 2^22 the sum and its half are exact and the value is
//   moved by (|s| + 1/2) / |w| x (2^-23 + 2^-48) at most, that is by less than 1 / 2|w|; from there
//   on the quotient is 256 or more, and as every step keeps the order of the sums, so is the value.
template <typename Number>
void store_quotients(const std::int32_t* __restrict sums, Byte* __restrict to, int count,
                     std::int32_t weight) {
    const Number sign = weight < 0 ? -1 : 1;
    const Number half = static_cast<Number>(0.5);
    const Number limit = static_cast<Number>(255.5);
    const Number reciprocal = 1 / (sign * static_cast<Number>(weight));
    for (int k = 0; k < count; ++k) {
        const Number value = (sign * static_cast<Number>(sums[k]) + half) * reciprocal;
        // 255.5 instead of 255: a constant that is no whole number keeps the compiler from
        // choosing after the conversion, in more steps.
        const Number limited = value < limit ? value : limit;
        to[k] = clamped(static_cast<std::int32_t>(limited));
    }
}

void wide(const Byte* from, Byte* to, int count, const Taps& taps) {
    constexpr std::int32_t kFloatWeight = 1 << 14;
    alignas(32) std::int32_t sums[kLongestSpan];
    sum_taps(from, short_pairs(taps, lower_half), sums, count);
    const ShortPairs upper = short_pairs(taps, upper_half);
    if (upper.count > 0) {
        alignas(32) std::int32_t upper_sums[kLongestSpan];
        sum_taps(from, upper, upper_sums, count);
        for (int k = 0; k < count; ++k)
            sums[k] = static_cast<std::int32_t>(static_cast<std::uint32_t>(sums[k]) +
                                                (static_cast<std::uint32_t>(upper_sums[k]) << 16));
    }
    if (taps.weight >= -kFloatWeight && taps.weight <= kFloatWeight)
        store_quotients<float>(sums, to, count, taps.weight);
    else
        store_quotients<double>(sums, to, count, taps.weight);
}

struct Smaller {
    static Byte of(Byte a, Byte b) { return a < b ? a : b; }
};
struct Larger {
    static Byte of(Byte a, Byte b) { return a > b ? a : b; }
};

template <typename Choice>
void extreme(const Byte* from, std::ptrdiff_t row_step, Byte* __restrict to, int count) {
    alignas(32) Byte column[kLongestSpan + 6];
    const Byte* middle = from - 3;
    const Byte* lower = middle - row_step;
    const Byte* upper = middle + row_step;
    for (int k = 0; k < count + 6; ++k)
        column[k] = Choice::of(Choice::of(lower[k], middle[k]), upper[k]);
    for (int k = 0; k < count; ++k)
        to[k] = Choice::of(Choice::of(column[k], column[k + 3]), column[k + 6]);
}

// `Lane` holds every sum; the constants are laid out for a run of whole pixels and whole vectors.
template <typename Lane, typename Signed>
void add(const Byte* __restrict from, Byte* __restrict to, int count, const ByteSum& sum) {
    constexpr int kRun = 96;
    alignas(32) Lane constant[kRun];
    for (int k = 0; k < kRun; ++k)
        constant[k] = static_cast<Lane>(sum.constant[k % 3]);
    const Lane m = static_cast<Lane>(sum.from);
    const Lane n = static_cast<Lane>(sum.to);
    const auto one = [&](int k, int phase) {
        const auto value =
            static_cast<Signed>(static_cast<Lane>(from[k] * m + to[k] * n + constant[phase]));
        to[k] = static_cast<Byte>(value < 0 ? 0 : value > 255 ? 255 : value);
    };
    int k = 0;
    for (; k + kRun <= count; k += kRun)
        for (int phase = 0; phase < kRun; ++phase)
            one(k + phase, phase);
    for (int phase = 0; k < count; ++k, ++phase)
        one(k, phase);
}

constexpr FilterRows kRows{narrow,
                           wide,
                           kFew,
                           extreme<Smaller>,
                           extreme<Larger>,
                           add<std::uint16_t, std::int16_t>,
                           add<std::uint32_t, std::int32_t>};

} // namespace
} // namespace kelvane
