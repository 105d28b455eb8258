#include "cli/engine_call.h"

#include "base/file_error.h"

namespace kelvane {

void require(bool done) {
    if (!done) throw FileError(FileFault::NoMemory);
}

cDIBSection buffer_for(const cDIBSection& picture) {
    cDIBSection buffer;
    require(buffer.Create(picture.Width(), picture.Height()));
    return buffer;
}

std::string size_text(const cDIBSection& picture) {
    return std::to_string(picture.Width()) + " x " + std::to_string(picture.Height());
}

} // namespace kelvane
