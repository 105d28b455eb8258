#include "base/file_bytes.h"

#include "base/file_error.h"

#include <array>
#include <cerrno>
#include <fstream>
#include <system_error>

namespace kelvane {
namespace {

constexpr std::size_t kLargestFile = std::size_t{1} << 31;

[[noreturn]] void fail_with_errno(int error) {
    if (error == 0) throw FileError(FileFault::Unreadable);
    throw FileError(std::error_code(error, std::generic_category()));
}

} // namespace

std::vector<std::uint8_t> read_file_bytes(const std::filesystem::path& file) {
    std::error_code ignored;
    if (std::filesystem::is_directory(file, ignored)) throw FileError(FileFault::IsFolder);
    const std::uintmax_t size = std::filesystem::file_size(file, ignored);
    if (!ignored && size > kLargestFile) throw FileError(FileFault::Over2Gb);
    errno = 0;
    std::ifstream in(file, std::ios::binary);
    if (!in) fail_with_errno(errno);
    return read_stream_bytes(in);
}

std::vector<std::uint8_t> read_stream_bytes(std::istream& in) {
    errno = 0;
    // Read in blocks, not by size: a pipe or a device has none.
    std::vector<std::uint8_t> bytes;
    std::array<char, 65536> block{};
    while (in.read(block.data(), block.size()) || in.gcount() > 0) {
        const auto* first = reinterpret_cast<const std::uint8_t*>(block.data());
        bytes.insert(bytes.end(), first, first + in.gcount());
        if (bytes.size() > kLargestFile) throw FileError(FileFault::Over2Gb);
    }
    if (in.bad()) fail_with_errno(errno);
    return bytes;
}

} // namespace kelvane
