#include "win/names.h"

#include <windows.h>

namespace kelvane::win {

int compare_names(std::wstring_view a, std::wstring_view b) {
    return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(),
                                static_cast<int>(b.size()), TRUE) -
           CSTR_EQUAL;
}

} // namespace kelvane::win
