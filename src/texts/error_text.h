// What a message says about a failure.
#pragma once

#include <exception>
#include <stdexcept>
#include <string>

namespace kelvane {

/// A failure in words of the string table.
class TextError : public std::runtime_error {
  public:
    explicit TextError(std::wstring text)
        : std::runtime_error("see text()"), text_(std::move(text)) {}
    const std::wstring& text() const { return text_; }

  private:
    std::wstring text_;
};

/// The cause of any failure, for the end of a message.
std::wstring error_text(const std::exception& error);

} // namespace kelvane
