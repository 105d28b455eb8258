#include "image/picture_reader.h"

#include "image/file_bytes.h"

namespace kelvane {

cDIBSection read_picture(const std::filesystem::path& file) {
    const std::vector<std::uint8_t> bytes = read_file_bytes(file);
    if (bytes.empty()) throw FileError(FileFault::kEmpty);
    return decode_picture(bytes);
}

} // namespace kelvane
