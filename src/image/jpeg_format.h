// JPEG files.
#pragma once

#include "image/completeness.h"

namespace kelvane {

bool is_jpeg(Bytes file_bytes);

/// The segments of a JPEG file up to the header of a scan, one after the other.
class JpegSegments {
  public:
    /// `at` is where to look for the first segment: by default behind the start of the image.
    explicit JpegSegments(Bytes file, std::size_t at = 2) : file_(file), at_(at) {}

    /// Goes to the next segment; bytes that are no marker are skipped. False behind the header of a
    /// scan, at the end mark, and where the file ends before that.
    bool next();
    /// What the last segment is; the end mark's value at the end mark, 0 where the file ends.
    std::uint8_t marker() const { return marker_; }
    Bytes content() const { return content_; }
    /// The offset behind the segment.
    std::size_t end() const { return at_; }

  private:
    Bytes file_;
    std::size_t at_;
    std::uint8_t marker_ = 0;
    Bytes content_;
};

/// The TIFF structure in the EXIF segment of a JPEG file; empty without one.
Bytes jpeg_exif(Bytes file_bytes);

/// Whether the file reaches its end mark, every scan holds all of its blocks, and the scans
/// together hold all bits of all coefficients. Huffman codes are parsed without decoding samples;
/// of arithmetic coding only the markers are checked.
Completeness jpeg_completeness(Bytes file_bytes);

} // namespace kelvane
