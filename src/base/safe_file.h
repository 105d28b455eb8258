// Writing a file so that a failure never costs the user the one that was there.
#pragma once

#include "base/output_file.h"

#include <filesystem>
#include <string_view>

namespace kelvane {

/// A file under construction: it takes its target's place on `commit` and vanishes when dropped
/// before or when the process is ended, by a signal, Ctrl+C or closing its console. The data is on
/// the disk before the old file goes; the new one has its permissions. Behind a symbolic link, the
/// file that it leads to is written, existing or not.
///
/// Where the target can be written but not replaced (in a folder that takes no new files, at a
/// mount point) the finished file is copied over the old content. That cannot be atomic: a failure
/// meanwhile leaves neither.
///
/// Standard output, devices and pipes (see `is_stream`) are written to directly.
///
/// Every function throws `FileError` with the cause.
class SafeFile {
  public:
    /// The target that is standard output; "./-" is a file of that name.
    static constexpr const char* kStandardOutput = "-";

    explicit SafeFile(const std::filesystem::path& target);

    void write(std::string_view bytes);
    /// Closes the file and puts it in the target's place.
    void commit();

  private:
    void open(const std::filesystem::path& target);
    void open_replacement();
    void put_in_place();

    std::filesystem::path target_; // empty when writing directly
    bool replaces_ = true;         // else the content is copied
    OutputFile file_;
};

} // namespace kelvane
