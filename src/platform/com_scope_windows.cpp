#include "base/com_scope.h"

#include <windows.h>

#include <objbase.h>

namespace kelvane {

ComScope::ComScope() : started_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}

ComScope::~ComScope() {
    if (started_) CoUninitialize();
}

} // namespace kelvane
