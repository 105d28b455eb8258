// COM for the picture readers: its lifetime on a thread, pointers, and failures in words.
#pragma once

#include "base/file_error.h"

// windows.h leaves COM out of its lean form.
#include <windows.h>

#include <objbase.h>
#include <wrl/client.h>

namespace kelvane {

using Microsoft::WRL::ComPtr;

/// COM is ready on this thread while the object lives. A thread on which somebody else has
/// chosen another kind of apartment serves as well.
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

/// The cause of a failed decoder call as a phrase in UTF-8: the system's words where it has any.
FileError decoding_error(HRESULT result);

inline void throw_if_failed(HRESULT result) {
    if (FAILED(result)) throw decoding_error(result);
}

} // namespace kelvane
