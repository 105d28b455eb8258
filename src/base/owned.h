// The owner of a handle of whatever kind.
#pragma once

#include <utility>

namespace kelvane {

/// Owns one handle; `Destroy` frees it.
template <class Handle, auto Destroy> class Owned {
  public:
    Owned() = default;
    explicit Owned(Handle handle) : handle_(handle) {}
    ~Owned() { reset(); }
    Owned(Owned&& other) noexcept : handle_(other.release()) {}
    Owned& operator=(Owned&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }

    Handle get() const { return handle_; }
    explicit operator bool() const { return handle_ != nullptr; }
    /// Gives up ownership, for example to the clipboard or a window.
    Handle release() { return std::exchange(handle_, nullptr); }
    void reset(Handle handle = nullptr) {
        if (handle_ != nullptr) Destroy(handle_);
        handle_ = handle;
    }

  private:
    Handle handle_ = nullptr;
};

} // namespace kelvane
