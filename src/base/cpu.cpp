#include "base/cpu.h"

#include <algorithm>

namespace kelvane {
namespace {

CpuLevel cap_in_force = CpuLevel::Avx2;

// The built-in also asks whether the operating system saves the wide registers.
CpuLevel detect() {
    __builtin_cpu_init();
    return __builtin_cpu_supports("avx2") ? CpuLevel::Avx2 : CpuLevel::Baseline;
}

} // namespace

CpuLevel cpu_level() {
    static const CpuLevel detected = detect();
    return std::min(detected, cap_in_force);
}

CpuLevelCap::CpuLevelCap(CpuLevel cap) : previous_(cap_in_force) {
    cap_in_force = cap;
}

CpuLevelCap::~CpuLevelCap() {
    cap_in_force = previous_;
}

} // namespace kelvane
