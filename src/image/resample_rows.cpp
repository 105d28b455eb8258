// Resampling's inner loops for every processor, and the choice between the levels.
#include "image/resample_rows.inl"

#include "image/cpu.h"

namespace kelvane {

const ResampleRows& resample_rows_baseline() {
    return kRows;
}

const ResampleRows& resample_rows() {
    return cpu_level() == CpuLevel::Avx2 ? resample_rows_avx2() : resample_rows_baseline();
}

} // namespace kelvane
