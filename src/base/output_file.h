// A file that is being written, as the system has them.
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string_view>

namespace kelvane {

/// Whether `file` names a device or a pipe, written to as it stands. On Linux so does everything
/// under /dev and /proc (standard output among it) but the ordinary files of /dev/shm.
bool is_stream(const std::filesystem::path& file);

/// The full name of the file that is meant by `file`, which may be a symbolic link, on Linux also
/// one that leads to a file that does not exist yet.
std::filesystem::path behind_links(const std::filesystem::path& file);

/// An open file. Its functions throw `std::system_error` with an error of the generic category
/// where there is one.
class OutputFile {
  public:
    /// No file.
    OutputFile();
    ~OutputFile();
    OutputFile(OutputFile&&) noexcept;
    OutputFile& operator=(OutputFile&&) noexcept;

    static OutputFile standard_output();
    /// A file for which `is_stream` holds. What the process itself has open is written on where
    /// it stands, so that a redirection that appends does so.
    static OutputFile stream(const std::filesystem::path& file);
    /// A new file in `folder`, which vanishes with this object and when the process is ended,
    /// unless it replaces another. It has the permissions of the file `like` and, as far as that is
    /// allowed, its owner and group; without such a file those that new files have.
    static OutputFile temporary_in(const std::filesystem::path& folder,
                                   const std::filesystem::path& like);

    /// Writes the first of these bytes and returns how many.
    std::size_t write(std::string_view bytes);

    /// Brings the data of a temporary file to the disk and the file in the place of `target`, which
    /// is in the same folder. When this fails all is as before.
    void replace(const std::filesystem::path& target);
    /// Writes the content of a temporary file over that of the existing `target`. A failure can
    /// leave a mixture.
    void copy_over(const std::filesystem::path& target);
    void close();

  private:
    struct System;
    explicit OutputFile(std::unique_ptr<System> system);

    std::unique_ptr<System> system_;
};

} // namespace kelvane
