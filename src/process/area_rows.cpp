// The inner loops for every processor, and the choice between the levels.
#include "process/area_rows.inl"

#include "base/cpu.h"

namespace kelvane {

const AreaRows& area_rows_baseline() {
    return kRows;
}

const AreaRows& area_rows() {
    return cpu_level() == CpuLevel::Avx2 ? area_rows_avx2() : area_rows_baseline();
}

} // namespace kelvane
