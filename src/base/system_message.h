// What Windows says about an error number; Windows only.
#pragma once

#include <string>

namespace kelvane {

/// The system's own words for an error number or an HRESULT, in the user's language and without a
/// line break at the end; empty when it has none.
std::wstring system_message(unsigned long code);

} // namespace kelvane
