// The picture that a command works on: which one, and what is done to it first.
#pragma once

#include "cli/operations.h"
#include "engine/image_process.h"
#include "image/dib_section.h"

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace kelvane {

/// What a command line says of its picture, as it stands there.
struct PictureRequest {
    std::string input; ///< file name in UTF-8, "-" for standard input
    std::vector<std::string> operations;
    std::optional<std::string> seed; ///< makes the noise of `operations` reproducible
    bool full_size = false;          ///< unless set, the picture is reduced as opening does
};

/// Declares INPUT, --seed and --full-size. How operations are given is the command's own.
void add_picture_options(CLI::App& command, PictureRequest& request);

/// A request that is understood.
class PictureJob {
  public:
    /// Throws `UsageError`; no file is touched.
    explicit PictureJob(const PictureRequest& request);

    /// INPUT and the files that operations read.
    const std::vector<std::string>& inputs() const { return inputs_; }

    /// Reads the picture and runs the operations on it with `engine`. Throws `FileError` that
    /// begins with the file's name.
    cDIBSection run(cImageProcessDIB& engine, std::istream& standard_input) const;

  private:
    cDIBSection open(std::istream& standard_input) const;

    OperationList operations_;
    std::vector<std::string> inputs_;
    std::optional<std::uint32_t> seed_;
    bool full_size_;
};

/// Runs `work` and puts `file` before the message of a `FileError`.
void with_file_name(const std::string& file, const std::function<void()>& work);

} // namespace kelvane
