// RAII flag: an operation is running.
#pragma once

#include "win/wait_cursor.h"

#include <utility>

namespace kelvane {

/// Sets a flag and restores its previous value in the destructor, where the wait cursor that the
/// main window shows meanwhile goes. Nested scopes are allowed.
class [[nodiscard]] Busy {
  public:
    explicit Busy(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    ~Busy() {
        flag_ = before_;
        if (!flag_) win::renew_cursor();
    }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

  private:
    bool& flag_;
    bool before_;
};

} // namespace kelvane
