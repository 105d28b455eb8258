// Where a picture's pixels live. The header declares, the linker chooses: plain heap memory for
// the command line and the tests, a DIB section selected into a memory device context for the
// desktop program. The bytes are the same in both.
#pragma once

#include "image/gdi_handles.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace kelvane {

/// Owner of one block of bottom-up 24-bit pixel memory.
class PixelStore {
  public:
    /// A zeroed store of `height` rows, `bytes_per_row` each; null when the system has none left.
    /// Its device context is compatible with `like`, or with the screen for null; heap memory has
    /// none.
    static std::unique_ptr<PixelStore> create(int width, int height, std::size_t bytes_per_row,
                                              DeviceContext like);

    virtual ~PixelStore() = default;
    PixelStore() = default;
    PixelStore(const PixelStore&) = delete;
    PixelStore& operator=(const PixelStore&) = delete;

    /// First byte of memory row 0, the bottom row.
    virtual std::uint8_t* bits() = 0;
    /// The device context into which the bitmap is selected; null for heap memory.
    virtual DeviceContext device_context() const = 0;
    /// Null for heap memory.
    virtual BitmapHandle bitmap() const = 0;
};

} // namespace kelvane
