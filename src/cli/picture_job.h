// The picture that a command works on: which one, and what is done to it first.
#pragma once

#include "cli/command_line.h"
#include "cli/operations.h"
#include "engine/image_process.h"
#include "image/byte_numbers.h"
#include "image/dib_section.h"
#include "image/resolution.h"
#include "image/transparency.h"

#include <cstdint>
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
    std::string alpha = "auto";      ///< or "paper" or "ink"
};

/// What was found when a picture was opened, before operations.
struct PictureOrigin {
    int width_in_file = 0; ///< in pixels, upright
    int height_in_file = 0;
    int width_opened = 0; ///< smaller when the picture was reduced
    int height_opened = 0;
    std::optional<Resolution> resolution; ///< of the file's pixels
    /// Transparent pixels were drawn as ink, because white paper would have left nothing.
    bool ink_instead_of_nothing = false;
};

struct OpenedPicture {
    cDIBSection picture; ///< after the operations
    PictureOrigin origin;
};

/// Declares INPUT, --seed, --full-size and --alpha. How operations are given is the command's own.
void add_picture_options(CLI::App& command, PictureRequest& request);

/// A request that is understood.
class PictureJob {
  public:
    /// Throws `UsageError`; no file is touched.
    explicit PictureJob(const PictureRequest& request);

    /// INPUT and the files that operations read.
    const std::vector<std::string>& inputs() const { return inputs_; }

    /// Reads the picture and runs the operations on it with `engine`. With --alpha auto,
    /// transparent pixels are paper; when the result has no pixel of a grey up to `visible`,
    /// everything is done again with ink, which is taken if it has such pixels. Throws `FileError`
    /// that begins with the file's name.
    OpenedPicture run(cImageProcessDIB& engine, std::istream& standard_input, int visible) const;

    /// Says on `console` what opening changed: the size, or transparent pixels.
    void tell(const PictureOrigin& origin, const Console& console) const;

  private:
    std::vector<std::uint8_t> read(std::istream& standard_input) const;
    OpenedPicture open(Bytes file_bytes, Transparency transparency, cImageProcessDIB& engine) const;

    OperationList operations_;
    std::vector<std::string> inputs_;
    std::optional<std::uint32_t> seed_;
    bool full_size_;
    std::optional<Transparency> transparency_; // nothing: automatic
};

} // namespace kelvane
