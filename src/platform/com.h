// Owners for COM: the library's start and end, and interface pointers.
#pragma once

#include "image/file_error.h"

#include <windows.h>

#include <memory>
#include <objbase.h>
#include <span>

namespace kelvane {

/// COM for as long as the object lives. A thread that already chose another apartment keeps it.
class ComScope {
  public:
    ComScope() : started_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
    ~ComScope() {
        if (started_) CoUninitialize();
    }
    ComScope(const ComScope&) = delete;
    ComScope& operator=(const ComScope&) = delete;

  private:
    bool started_;
};

struct ComRelease {
    void operator()(IUnknown* object) const { object->Release(); }
};
/// Owns one reference; empty when the call that should have filled it failed.
template <typename Interface> using ComPointer = std::unique_ptr<Interface, ComRelease>;

/// A stream over a copy of the bytes; throws `FileError` when there is no memory for it.
ComPointer<IStream> stream_over(std::span<const std::uint8_t> bytes);

} // namespace kelvane
