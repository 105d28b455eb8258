// COM for the picture readers: pointers, and failures in words.
#pragma once

#include "base/file_error.h"

// windows.h leaves COM out of its lean form.
#include <windows.h>

#include <objbase.h>
#include <wrl/client.h>

namespace kelvane {

using Microsoft::WRL::ComPtr;

/// The cause of a failed decoder call as a phrase in UTF-8: the system's words where it has any.
FileError decoding_error(HRESULT result);

inline void throw_if_failed(HRESULT result) {
    if (FAILED(result)) throw decoding_error(result);
}

} // namespace kelvane
