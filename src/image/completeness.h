// Checks a picture file for completeness before it is decoded. Decoders treat truncated files
// differently: some report an error, some fill the rest with grey, some allocate whatever size the
// header claims.
#pragma once

#include "image/byte_numbers.h"

namespace kelvane {

enum class Completeness {
    Complete,
    NoPixels, ///< the width or the height is 0
    TooLarge, ///< for a `cDIBSection`
    Damaged,  ///< the file is truncated, or the data that gives its extent is damaged
};

/// Whether the picture of a PNG, JPEG, GIF, TIFF, bitmap, icon, cursor or metafile is complete; of
/// several pictures only the one that is shown counts. Compressed data is checked for its extent,
/// not for its content. `Complete` for all other bytes.
Completeness completeness(Bytes file_bytes);

/// `Complete` for a picture of this size, if it is not empty and fits a `cDIBSection`.
Completeness size_completeness(std::int64_t width, std::int64_t height);

inline Completeness complete_if(bool complete) {
    return complete ? Completeness::Complete : Completeness::Damaged;
}

} // namespace kelvane
