// What operations of the command line share in their calls of the engine.
#pragma once

#include "image/dib_section.h"

#include <string>

namespace kelvane {

/// Throws `FileError` unless the engine did its work: with valid arguments it refuses only empty
/// pictures, which come from failed allocations.
void require(bool done);

/// A buffer of the picture's size for operations that do not work in place. Throws `FileError` when
/// there is no memory for it.
cDIBSection buffer_for(const cDIBSection& picture);

/// "640 x 480"
std::string size_text(const cDIBSection& picture);

} // namespace kelvane
