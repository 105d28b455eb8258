// What the bytes of a picture file tell before it is decoded. Decoders differ in what they do with
// a file that was cut short: some report it, some fill the rest with grey, and some take memory
// for any size that a header claims.
#pragma once

#include "image/byte_numbers.h"

namespace kelvane {

enum class Completeness {
    kComplete,
    kNoPixels, ///< the width or the height is 0
    kTooLarge, ///< for a `cDIBSection`
    kDamaged,  ///< the file ends before its picture does, or what tells its extent is damaged
};

/// Whether the picture of a PNG, JPEG, GIF, TIFF, bitmap, icon, cursor or metafile is all there; of
/// several pictures the one that is shown. Only the extent of compressed data is examined, not
/// what it decodes to. `kComplete` for all other bytes.
Completeness completeness(Bytes file_bytes);

/// `kComplete` for a picture of this size, if it is not empty and fits a `cDIBSection`.
Completeness size_completeness(std::int64_t width, std::int64_t height);

inline Completeness complete_if(bool complete) {
    return complete ? Completeness::kComplete : Completeness::kDamaged;
}

} // namespace kelvane
