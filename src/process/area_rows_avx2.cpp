// The inner loops for processors with AVX2.
#include "process/area_rows.inl"

namespace kelvane {

const AreaRows& area_rows_avx2() {
    return kRows;
}

} // namespace kelvane
