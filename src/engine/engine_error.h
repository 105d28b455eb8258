// What the engine's properties raise.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace kelvane {

/// A refused property value: `what()` is the English text, `string_id()` its place in the string
/// table, `source()` the program's name followed by ".cImageProcess".
class EngineError : public std::runtime_error {
  public:
    EngineError(std::uint32_t number, int string_id, const char* text, std::string source)
        : std::runtime_error(text), number_(number), string_id_(string_id),
          source_(std::move(source)) {}

    std::uint32_t number() const { return number_; }
    int string_id() const { return string_id_; }
    const std::string& source() const { return source_; }

  private:
    std::uint32_t number_;
    int string_id_;
    std::string source_;
};

} // namespace kelvane
