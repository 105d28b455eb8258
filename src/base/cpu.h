// Which instruction set the faster paths may use; chosen here and nowhere else.
#pragma once

namespace kelvane {

/// Every build runs on `Baseline` (SSE2, part of x86-64); the rest is taken where it is found.
enum class CpuLevel { Baseline, Avx2 };

/// What the processor and the operating system offer, or the cap below when that is less.
CpuLevel cpu_level();

/// The one choice between tables of inner loops: the fastest that may be used.
template <class Rows> const Rows& fastest(const Rows& baseline, const Rows& avx2) {
    return cpu_level() >= CpuLevel::Avx2 ? avx2 : baseline;
}

/// While it lives no path above `cap` is taken, so that tests reach every path on one machine.
/// Not for use while another thread works.
class CpuLevelCap {
  public:
    explicit CpuLevelCap(CpuLevel cap);
    ~CpuLevelCap();
    CpuLevelCap(const CpuLevelCap&) = delete;
    CpuLevelCap& operator=(const CpuLevelCap&) = delete;

  private:
    CpuLevel previous_;
};

} // namespace kelvane
