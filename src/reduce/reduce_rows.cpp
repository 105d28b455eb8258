#include "reduce/reduce_rows.h"

#include "base/cpu.h"

#include <cstdlib>
#include <cstring>

namespace kelvane {
namespace {

void write_both(std::uint8_t* source, std::uint8_t* destination, bool dark) {
    const int value = dark ? 0 : 255;
    std::memset(source, value, 3);
    std::memset(destination, value, 3);
}

void weigh(std::uint8_t* source, std::uint8_t* destination, int count, const DarkTest& dark) {
    for (; count > 0; --count, source += 3, destination += 3) {
        const int sum = source[0] * dark.blue + source[1] * dark.green + source[2] * dark.red;
        write_both(source, destination, sum < dark.bound);
    }
}

int packed(const std::uint8_t* pixel) {
    return pixel[2] * 65536 + pixel[1] * 256 + pixel[0];
}

void edges(std::uint8_t* source, std::uint8_t* destination, int count, int least_step,
           std::uint8_t* left) {
    int before = packed(left);
    for (; count > 0; --count, source += 3, destination += 3) {
        const int here = packed(source);
        std::memcpy(left, source, 3);
        write_both(source, destination, std::abs(here - before) >= least_step);
        before = here;
    }
}

} // namespace

const ReduceRows kBaselineReduceRows{weigh, edges};

const ReduceRows& reduce_rows() {
    return fastest(kBaselineReduceRows, kAvx2ReduceRows);
}

} // namespace kelvane
