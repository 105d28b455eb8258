#include "platform/wic_picture_windows.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

namespace kelvane {
namespace {

struct Size {
    int width;
    int height;
};

Size size_of(IWICBitmapSource& source) {
    UINT width = 0;
    UINT height = 0;
    throw_if_failed(source.GetSize(&width, &height));
    constexpr UINT kMost = std::numeric_limits<int>::max();
    if (width > kMost || height > kMost) throw FileError(FileFault::TooLarge);
    return {static_cast<int>(width), static_cast<int>(height)};
}

// The pixels of a picture and how they lie.
struct Source {
    ComPtr<IWICBitmapSource> pixels;
    PixelLayout layout;
};

// Premultiplied pixels are taken as they are: dividing by the alpha and multiplying again would
// lose precision. Of 16-bit channels the high byte counts.
Source source_of(IWICImagingFactory& factory, ComPtr<IWICBitmapFrameDecode> frame) {
    const std::pair<const GUID*, PixelLayout> premultiplied[] = {
        {&GUID_WICPixelFormat32bppPBGRA, {4, 0, 1, 2, 3, true}},
        {&GUID_WICPixelFormat32bppPRGBA, {4, 2, 1, 0, 3, true}},
        {&GUID_WICPixelFormat64bppPRGBA, {8, 5, 3, 1, 7, true}},
    };
    WICPixelFormatGUID format = {};
    throw_if_failed(frame->GetPixelFormat(&format));
    for (const auto& [known, layout] : premultiplied)
        if (IsEqualGUID(*known, format)) return {frame, layout};
    ComPtr<IWICFormatConverter> converter;
    throw_if_failed(factory.CreateFormatConverter(&converter));
    throw_if_failed(converter->Initialize(frame.Get(), GUID_WICPixelFormat32bppBGRA,
                                          WICBitmapDitherTypeNone, nullptr, 0,
                                          WICBitmapPaletteTypeCustom));
    return {converter, {4, 0, 1, 2, 3}};
}

// In bands: a whole picture of four bytes a pixel would take more than the picture itself.
void copy_rows(const Source& source, Size size, UprightPicture& to) {
    constexpr std::size_t kBandBytes = std::size_t{16} << 20;
    const std::size_t row_bytes =
        static_cast<std::size_t>(size.width) * static_cast<std::size_t>(source.layout.bytes);
    const int rows = static_cast<int>(
        std::clamp<std::size_t>(kBandBytes / row_bytes, 1, static_cast<std::size_t>(size.height)));
    std::vector<BYTE> band(row_bytes * static_cast<std::size_t>(rows));
    for (int top = 0; top < size.height; top += rows) {
        const WICRect part = {0, top, size.width, std::min(rows, size.height - top)};
        throw_if_failed(source.pixels->CopyPixels(&part, static_cast<UINT>(row_bytes),
                                                  static_cast<UINT>(band.size()), band.data()));
        for (int y = 0; y < part.Height; ++y)
            to.put_row(top + y, band.data() + row_bytes * static_cast<std::size_t>(y),
                       source.layout);
    }
}

ComPtr<IWICBitmapFrameDecode> first_frame(IWICImagingFactory& factory, IStream& stream) {
    ComPtr<IWICBitmapDecoder> decoder;
    // Unknown formats fail with more than one code: a codec may take the file for its own at first.
    if (FAILED(factory.CreateDecoderFromStream(&stream, nullptr, WICDecodeMetadataCacheOnDemand,
                                               &decoder)))
        throw FileError(FileFault::UnknownFormat);
    UINT frames = 0;
    throw_if_failed(decoder->GetFrameCount(&frames));
    if (frames == 0) throw FileError(FileFault::NoPicture);
    ComPtr<IWICBitmapFrameDecode> frame;
    throw_if_failed(decoder->GetFrame(0, &frame));
    return frame;
}

} // namespace

void read_wic_picture(IWICImagingFactory& factory, IStream& stream, int orientation,
                      UprightPicture& to) {
    const ComPtr<IWICBitmapFrameDecode> frame = first_frame(factory, stream);
    const Size size = size_of(*frame.Get());
    to.begin(size.width, size.height, orientation);
    copy_rows(source_of(factory, frame), size, to);
}

} // namespace kelvane
