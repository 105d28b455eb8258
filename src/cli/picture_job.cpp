#include "cli/picture_job.h"

#include "base/file_bytes.h"
#include "base/file_error.h"
#include "base/text.h"
#include "cli/file_argument.h"
#include "cli/number_argument.h"
#include "image/picture_reader.h"
#include "image/size_limit.h"
#include "process/dark_bounds.h"

#include <CLI/CLI.hpp>

#include <exception>
#include <limits>
#include <ostream>

namespace kelvane {

void add_picture_options(CLI::App& command, PictureRequest& request) {
    command.add_option("INPUT", request.input, "the picture; - for standard input")
        ->required()
        ->type_name("");
    command.add_option("--seed", request.seed, "makes the operation noise reproducible")
        ->type_name("N");
    command
        .add_flag("--full-size", request.full_size,
                  "keep a picture larger than about " + std::to_string(kWidthLimit) + " x " +
                      std::to_string(kHeightLimit))
        ->disable_flag_override();
    command
        .add_option("--alpha", request.alpha,
                    "transparent pixels: paper shows white; ink makes whatever is opaque black; "
                    "auto is ink only when paper would leave nothing")
        ->capture_default_str()
        ->check(CLI::IsMember({"auto", "paper", "ink"}));
}

PictureJob::PictureJob(const PictureRequest& request)
    : operations_(parse_operations(request.operations)), inputs_(operations_.files),
      full_size_(request.full_size) {
    if (request.alpha != "auto")
        transparency_ = request.alpha == "ink" ? Transparency::Ink : Transparency::Paper;
    inputs_.insert(inputs_.begin(), request.input);
    if (request.seed)
        seed_ = number_argument<std::uint32_t>("--seed", *request.seed, 0,
                                               std::numeric_limits<std::uint32_t>::max());
}

OpenedPicture PictureJob::run(cImageProcessDIB& engine, std::istream& standard_input,
                              int visible) const {
    const std::vector<std::uint8_t> file = read(standard_input);
    if (transparency_) return open(file, *transparency_, engine);
    std::exception_ptr paper_failure; // trim fails where nothing is dark
    const auto open_as = [&](Transparency transparency) {
        try {
            return open(file, transparency, engine);
        } catch (const FileError&) {
            if (transparency != Transparency::Paper) throw;
            paper_failure = std::current_exception();
            return OpenedPicture{};
        }
    };
    auto [opened, transparency] = open_visibly(open_as, [&](const OpenedPicture& picture) {
        return DarkBounds(picture.picture.view(), visible).has_value();
    });
    opened.origin.ink_instead_of_nothing = transparency == Transparency::Ink;
    if (paper_failure && transparency == Transparency::Paper) std::rethrow_exception(paper_failure);
    return std::move(opened);
}

std::vector<std::uint8_t> PictureJob::read(std::istream& standard_input) const {
    std::vector<std::uint8_t> file;
    with_file_name(shown_input(inputs_[0]), [&] {
        file = inputs_[0] == kStandardStream ? read_stream_bytes(standard_input)
                                             : read_file_bytes(utf8_path(inputs_[0]));
    });
    return file;
}

OpenedPicture PictureJob::open(Bytes file_bytes, Transparency transparency,
                               cImageProcessDIB& engine) const {
    OpenedPicture opened;
    cDIBSection& picture = opened.picture;
    with_file_name(shown_input(inputs_[0]), [&] {
        picture = decode_picture(file_bytes, transparency);
        opened.origin.width_in_file = picture.Width();
        opened.origin.height_in_file = picture.Height();
        if (!full_size_ && !Render2(picture))
            throw FileError("there is not enough memory to reduce the picture");
    });
    opened.origin.width_opened = picture.Width();
    opened.origin.height_opened = picture.Height();
    opened.origin.resolution = file_resolution(file_bytes);
    run_operations(operations_, seed_, picture, engine);
    return opened;
}

void PictureJob::tell(const PictureOrigin& origin, const Console& console) const {
    const std::string start = "kelvane-cli: " + shown_input(inputs_[0]) + ": ";
    if (origin.width_opened != origin.width_in_file ||
        origin.height_opened != origin.height_in_file)
        console.error << start << "reduced from " << origin.width_in_file << " x "
                      << origin.height_in_file << " to " << origin.width_opened << " x "
                      << origin.height_opened << " pixels (--full-size keeps them)\n";
    if (origin.ink_instead_of_nothing)
        console.error << start
                      << "nothing shows on white paper; what is opaque is black instead "
                         "(--alpha paper keeps it white)\n";
}

} // namespace kelvane
