// Failures that Windows reports by number.
#pragma once

#include <stdexcept>
#include <string>

namespace kelvane {

/// The system's own words for an error number, in the user's language, without a line break.
std::wstring platform_error_text(unsigned long code);

/// A failed platform call.
class PlatformError : public std::runtime_error {
  public:
    /// `code`: what GetLastError said right after the call.
    explicit PlatformError(unsigned long code);

    unsigned long code() const { return code_; }
    /// What a message box shows: `platform_error_text`.
    std::wstring text() const { return platform_error_text(code_); }

  private:
    unsigned long code_;
};

} // namespace kelvane
