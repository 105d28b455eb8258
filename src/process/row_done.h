// How a filter hands over finished rows while they are still in the processor's cache.
#pragma once

#include <functional>

namespace kelvane {

/// Called for every row of the picture, ascending, once the filter writes nothing more to that row
/// of its target and reads nothing more from that row of its source. Borders count as rows too.
using RowDone = std::function<void(int y)>;

} // namespace kelvane
