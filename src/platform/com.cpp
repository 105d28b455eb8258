#include "platform/com.h"

#include <cstring>

namespace kelvane {

ComPointer<IStream> stream_over(std::span<const std::uint8_t> bytes) {
    IStream* stream = nullptr;
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
    void* content = memory ? GlobalLock(memory) : nullptr;
    if (!content) throw FileError("not enough memory for the file");
    std::memcpy(content, bytes.data(), bytes.size());
    GlobalUnlock(memory);
    if (FAILED(CreateStreamOnHGlobal(memory, TRUE, &stream))) {
        GlobalFree(memory);
        throw FileError("not enough memory for the file");
    }
    return ComPointer<IStream>(stream);
}

} // namespace kelvane
