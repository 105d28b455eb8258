// The inner loops for processors with AVX2.
#include "process/area_rows.inl"

namespace kelvane {

const AreaRows kAvx2AreaRows = kRows;

} // namespace kelvane
