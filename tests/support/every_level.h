// Runs a check once for every processor level that this machine has.
#pragma once

#include "base/cpu.h"

#include <gtest/gtest.h>

namespace kelvane::test {

template <typename Check> void at_every_level(Check check) {
    for (const CpuLevel level : {CpuLevel::Baseline, CpuLevel::Avx2}) {
        const CpuLevelCap cap(level);
        if (cpu_level() != level) continue; // this processor ends below
        SCOPED_TRACE(level == CpuLevel::Baseline ? "baseline" : "AVX2");
        check();
        if (testing::Test::HasFailure()) return;
    }
}

} // namespace kelvane::test
