// Owner of a kernel handle: a file, a pipe end, a process, a job.
#pragma once

#include <windows.h>

#include <utility>

namespace kelvane {

/// Closes its handle in the destructor. Both values that Windows uses for "no handle", null and
/// INVALID_HANDLE_VALUE, count as empty.
class UniqueHandle {
  public:
    UniqueHandle() = default;
    explicit UniqueHandle(HANDLE handle)
        : handle_(handle == INVALID_HANDLE_VALUE ? nullptr : handle) {}
    ~UniqueHandle() { reset(); }
    UniqueHandle(UniqueHandle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    UniqueHandle& operator=(UniqueHandle&& other) noexcept {
        std::swap(handle_, other.handle_);
        return *this;
    }

    HANDLE get() const { return handle_; }
    explicit operator bool() const { return handle_ != nullptr; }
    void reset() {
        if (handle_ != nullptr) CloseHandle(std::exchange(handle_, nullptr));
    }

  private:
    HANDLE handle_ = nullptr;
};

} // namespace kelvane
