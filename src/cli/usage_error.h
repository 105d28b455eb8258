// A command line that does not say what can be done.
#pragma once

#include <stdexcept>

namespace kelvane {

/// Says what is accepted; ends the program with exit code 2.
class UsageError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

} // namespace kelvane
