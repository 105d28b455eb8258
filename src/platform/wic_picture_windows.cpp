#include "platform/wic_picture_windows.h"

#include "image/upright_picture.h"

#include <algorithm>
#include <limits>
#include <vector>

namespace kelvane {
namespace {

constexpr PixelLayout kBgra = {4, 0, 1, 2, 3};

struct Size {
    int width;
    int height;
};

Size size_of(IWICBitmapSource& source) {
    UINT width = 0;
    UINT height = 0;
    throw_if_failed(source.GetSize(&width, &height));
    constexpr UINT kMost = std::numeric_limits<int>::max();
    if (width > kMost || height > kMost) throw FileError(FileFault::kTooLarge);
    return {static_cast<int>(width), static_cast<int>(height)};
}

UINT frames_to_choose_from(IWICBitmapDecoder& decoder) {
    GUID container = {};
    UINT frames = 0;
    throw_if_failed(decoder.GetContainerFormat(&container));
    throw_if_failed(decoder.GetFrameCount(&frames));
    return IsEqualGUID(container, GUID_ContainerFormatIco) ? frames : std::min(frames, 1U);
}

ComPtr<IWICBitmapFrameDecode> chosen_frame(IWICBitmapDecoder& decoder) {
    ComPtr<IWICBitmapFrameDecode> best;
    std::int64_t best_area = -1;
    const UINT frames = frames_to_choose_from(decoder);
    for (UINT i = 0; i < frames; ++i) {
        ComPtr<IWICBitmapFrameDecode> frame;
        throw_if_failed(decoder.GetFrame(i, &frame));
        const Size size = size_of(*frame.Get());
        const std::int64_t area = std::int64_t{size.width} * size.height;
        if (area <= best_area) continue;
        best_area = area;
        best = frame;
    }
    if (!best) throw FileError(FileFault::kNoPicture);
    return best;
}

ComPtr<IWICBitmapSource> with_straight_alpha(IWICImagingFactory& factory,
                                             IWICBitmapSource& source) {
    ComPtr<IWICFormatConverter> converter;
    throw_if_failed(factory.CreateFormatConverter(&converter));
    throw_if_failed(converter->Initialize(&source, GUID_WICPixelFormat32bppBGRA,
                                          WICBitmapDitherTypeNone, nullptr, 0,
                                          WICBitmapPaletteTypeCustom));
    return converter;
}

// In bands: a whole picture of four bytes a pixel would take more than the picture itself.
void copy_rows(IWICBitmapSource& source, Size size, UprightPicture& to) {
    constexpr std::size_t kBandBytes = std::size_t{16} << 20;
    const std::size_t row_bytes = static_cast<std::size_t>(size.width) * 4;
    const int rows = static_cast<int>(
        std::clamp<std::size_t>(kBandBytes / row_bytes, 1, static_cast<std::size_t>(size.height)));
    std::vector<BYTE> band(row_bytes * static_cast<std::size_t>(rows));
    for (int top = 0; top < size.height; top += rows) {
        const WICRect part = {0, top, size.width, std::min(rows, size.height - top)};
        throw_if_failed(source.CopyPixels(&part, static_cast<UINT>(row_bytes),
                                          static_cast<UINT>(band.size()), band.data()));
        for (int y = 0; y < part.Height; ++y)
            to.put_row(top + y, band.data() + row_bytes * static_cast<std::size_t>(y), kBgra);
    }
}

} // namespace

ComPtr<IWICBitmapDecoder> wic_decoder(IWICImagingFactory& factory, IStream& stream) {
    ComPtr<IWICBitmapDecoder> decoder;
    // Unknown formats fail with more than one code: a codec may take the file for its own at first.
    if (SUCCEEDED(factory.CreateDecoderFromStream(&stream, nullptr, WICDecodeMetadataCacheOnDemand,
                                                  &decoder)))
        return decoder;
    throw_if_failed(stream.Seek({}, STREAM_SEEK_SET, nullptr));
    return nullptr;
}

cDIBSection wic_picture(IWICImagingFactory& factory, IWICBitmapDecoder& decoder, int orientation) {
    const ComPtr<IWICBitmapFrameDecode> frame = chosen_frame(decoder);
    const Size size = size_of(*frame.Get());
    UprightPicture picture(size.width, size.height, orientation);
    copy_rows(*with_straight_alpha(factory, *frame.Get()).Get(), size, picture);
    return picture.take();
}

} // namespace kelvane
