// Resampling's inner loops for processors with AVX2.
#include "image/resample_rows.inl"

namespace kelvane {

const ResampleRows& resample_rows_avx2() {
    return kRows;
}

} // namespace kelvane
