// Failures that Windows reports by number.
#pragma once

#include <stdexcept>

namespace kelvane {

/// A failed platform call.
class PlatformError : public std::runtime_error {
  public:
    /// `code`: what GetLastError said right after the call.
    explicit PlatformError(unsigned long code);

    unsigned long code() const { return code_; }

  private:
    unsigned long code_;
};

} // namespace kelvane
