// Pictures through WIC, then the OLE picture loader.
#include "image/picture_reader.h"
#include "platform/com.h"
#include "platform/ole_picture.h"
#include "platform/whole_file.h"
#include "platform/wic_picture.h"

namespace kelvane {

cDIBSection decode_picture(std::span<const std::uint8_t> file_bytes) {
    require_whole_file(file_bytes);
    const ComScope com;
    if (std::optional<cDIBSection> picture = read_with_wic(file_bytes)) return std::move(*picture);
    return read_with_ole(file_bytes);
}

} // namespace kelvane
