// The inner loops for every processor, and the choice between the levels.
#include "process/area_rows.inl"

#include "base/cpu.h"

namespace kelvane {

const AreaRows kBaselineAreaRows = kRows;

const AreaRows& area_rows() {
    return fastest(kBaselineAreaRows, kAvx2AreaRows);
}

} // namespace kelvane
