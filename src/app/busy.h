// Mark of work that nothing may interrupt.
#pragma once

#include <utility>

namespace kelvane {

/// Sets a flag while it lives.
class Busy {
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
