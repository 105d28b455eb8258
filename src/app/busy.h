// RAII flag: an operation is running.
#pragma once

#include <utility>

namespace kelvane {

/// Sets a flag and restores its previous value in the destructor. Nested scopes are allowed.
class [[nodiscard]] Busy {
  public:
    explicit Busy(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    ~Busy() { flag_ = before_; }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

  private:
    bool& flag_;
    bool before_;
};

} // namespace kelvane
