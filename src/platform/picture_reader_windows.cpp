// Pictures through WIC, metafiles through the OLE picture loader.
#include "base/com_scope.h"
#include "image/metafile_format.h"
#include "image/orientation.h"
#include "image/picture_reader.h"
#include "platform/com_windows.h"
#include "platform/ole_picture_windows.h"
#include "platform/wic_picture_windows.h"

namespace kelvane {
namespace {

ComPtr<IStream> stream_over(IWICImagingFactory& factory, Bytes bytes) {
    ComPtr<IWICStream> stream;
    throw_if_failed(factory.CreateStream(&stream));
    // The stream is only read from.
    throw_if_failed(stream->InitializeFromMemory(const_cast<BYTE*>(bytes.data()),
                                                 static_cast<DWORD>(bytes.size())));
    return stream;
}

} // namespace

void decode_rows(Bytes file_bytes, UprightPicture& picture) {
    const ComScope com;
    ComPtr<IWICImagingFactory> factory;
    throw_if_failed(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                     IID_PPV_ARGS(&factory)));
    const ComPtr<IStream> stream = stream_over(*factory.Get(), file_bytes);
    // Only metafiles: the loader's other decoders can crash on bytes that are no picture.
    if (is_metafile(file_bytes))
        return read_ole_picture(*stream.Get(), static_cast<LONG>(file_bytes.size()), picture);
    read_wic_picture(*factory.Get(), *stream.Get(), orientation_mark(file_bytes), picture);
}

} // namespace kelvane
