// Pictures through WIC, then through the OLE picture loader.
#include "image/photo_marks.h"
#include "image/picture_reader.h"
#include "platform/com_windows.h"
#include "platform/ole_picture_windows.h"
#include "platform/wic_picture_windows.h"

namespace kelvane {
namespace {

ComPtr<IStream> stream_over(IWICImagingFactory& factory, std::span<const std::uint8_t> bytes) {
    ComPtr<IWICStream> stream;
    throw_if_failed(factory.CreateStream(&stream));
    // The stream is only read from.
    throw_if_failed(stream->InitializeFromMemory(const_cast<BYTE*>(bytes.data()),
                                                 static_cast<DWORD>(bytes.size())));
    return stream;
}

} // namespace

cDIBSection decode_picture(std::span<const std::uint8_t> file_bytes) {
    if (file_bytes.empty()) throw FileError(FileFault::kEmpty);
    if (!is_complete(file_bytes)) throw FileError(FileFault::kDamaged);
    const ComScope com;
    ComPtr<IWICImagingFactory> factory;
    throw_if_failed(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                     IID_PPV_ARGS(&factory)));
    const ComPtr<IStream> stream = stream_over(*factory.Get(), file_bytes);
    const ComPtr<IWICBitmapDecoder> decoder = wic_decoder(*factory.Get(), *stream.Get());
    if (decoder) return wic_picture(*factory.Get(), *decoder.Get(), orientation_mark(file_bytes));
    return ole_picture(*stream.Get(), static_cast<LONG>(file_bytes.size()));
}

} // namespace kelvane
