// Writing a file so that a failure never costs the user the one that was there.
#pragma once

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string_view>

namespace kelvane {

/// A file under construction beside its target: it takes the target's place on `commit` and
/// vanishes when dropped before. A target that is no ordinary file (a pipe, a device) is written
/// directly. Every function throws `FileError` with the cause.
class SafeFile {
  public:
    explicit SafeFile(const std::filesystem::path& target);
    ~SafeFile();
    SafeFile(const SafeFile&) = delete;
    SafeFile& operator=(const SafeFile&) = delete;

    void write(std::string_view bytes);
    /// Closes the file and puts it in the target's place.
    void commit();

  private:
    void open_temporary();
    void keep_permissions() const;

    std::filesystem::path target_;
    std::filesystem::path temporary_; // empty when writing directly or when committed
    std::ofstream out_;
};

} // namespace kelvane
