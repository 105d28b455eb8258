// Which pictures the engine works on together. An empty picture's size says nothing.
#pragma once

#include "image/dib_section.h"

namespace kelvane {

/// Two pictures of one size, neither empty.
inline bool same_size(const cDIBSection& a, const cDIBSection& b) {
    return !a.empty() && !b.empty() && a.Width() == b.Width() && a.Height() == b.Height();
}

/// `from` is at least as large as `to`, neither empty.
inline bool covers(const cDIBSection& from, const cDIBSection& to) {
    return !from.empty() && !to.empty() && from.Width() >= to.Width() &&
           from.Height() >= to.Height();
}

} // namespace kelvane
