// A command line that cannot be meant: exit code 2.
#pragma once

#include <stdexcept>

namespace kelvane {

/// Says what was given and what is accepted.
class UsageError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

} // namespace kelvane
