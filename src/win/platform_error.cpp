#include "win/platform_error.h"

#include <string>

namespace kelvane {

PlatformError::PlatformError(unsigned long code)
    : std::runtime_error("system error " + std::to_string(code)), code_(code) {}

} // namespace kelvane
