#include "platform/wic_picture.h"

#include "platform/com.h"
#include "platform/exif_orientation.h"
#include "platform/paper.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>
#include <wincodec.h>

namespace kelvane {
namespace {

void require(HRESULT result) {
    if (FAILED(result)) throw FileError("the picture is damaged or of an unknown kind");
}

// Runs a call that hands out an interface through its last argument.
template <typename Interface, typename Call> ComPointer<Interface> obtain(Call call) {
    Interface* object = nullptr;
    require(call(&object));
    return ComPointer<Interface>(object);
}

ComPointer<IWICImagingFactory> create_factory() {
    void* object = nullptr;
    require(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                             IID_IWICImagingFactory, &object));
    return ComPointer<IWICImagingFactory>(static_cast<IWICImagingFactory*>(object));
}

std::int64_t area(IWICBitmapSource& source) {
    UINT width = 0;
    UINT height = 0;
    require(source.GetSize(&width, &height));
    return std::int64_t{width} * height;
}

ComPointer<IWICBitmapFrameDecode> frame(IWICBitmapDecoder& decoder, UINT index) {
    return obtain<IWICBitmapFrameDecode>(
        [&](IWICBitmapFrameDecode** out) { return decoder.GetFrame(index, out); });
}

// The first image; of an icon's sizes the largest.
ComPointer<IWICBitmapFrameDecode> chosen_frame(IWICBitmapDecoder& decoder) {
    ComPointer<IWICBitmapFrameDecode> chosen = frame(decoder, 0);
    GUID format{};
    UINT count = 0;
    require(decoder.GetContainerFormat(&format));
    if (!IsEqualGUID(format, GUID_ContainerFormatIco)) return chosen;
    require(decoder.GetFrameCount(&count));
    for (UINT i = 1; i < count; ++i) {
        ComPointer<IWICBitmapFrameDecode> other = frame(decoder, i);
        if (area(*other) > area(*chosen)) chosen = std::move(other);
    }
    return chosen;
}

// An EXIF orientation as the turn that makes the picture upright.
WICBitmapTransformOptions upright_turn(int orientation) {
    constexpr std::array<int, 9> turns = {
        WICBitmapTransformRotate0,
        WICBitmapTransformRotate0,
        WICBitmapTransformFlipHorizontal,
        WICBitmapTransformRotate180,
        WICBitmapTransformFlipVertical,
        WICBitmapTransformRotate90 | WICBitmapTransformFlipHorizontal,
        WICBitmapTransformRotate90,
        WICBitmapTransformRotate270 | WICBitmapTransformFlipHorizontal,
        WICBitmapTransformRotate270,
    };
    return static_cast<WICBitmapTransformOptions>(turns[static_cast<std::size_t>(orientation)]);
}

// All pixels, top row first, four bytes each (blue, green, red, alpha), as the file has them.
std::vector<std::uint8_t> decoded_pixels(IWICBitmapSource& source, int width, int height) {
    const std::uint64_t step = std::uint64_t{4} * static_cast<unsigned>(width);
    const std::uint64_t bytes = step * static_cast<unsigned>(height);
    if (bytes > 0x7FFFFFFF) throw FileError("the picture is too large");
    std::vector<std::uint8_t> pixels(static_cast<std::size_t>(bytes));
    require(source.CopyPixels(nullptr, static_cast<UINT>(step), static_cast<UINT>(bytes),
                              pixels.data()));
    return pixels;
}

// Where pixel (x, y) of the upright picture stands in the decoded one.
struct Turn {
    int width;
    int height; // of the decoded picture
    int options;

    bool swaps_sides() const { return (options & WICBitmapTransformRotate90) != 0; }
    std::size_t source_index(int x, int y) const {
        const int quarter = options & WICBitmapTransformRotate270;
        const int upright_width = swaps_sides() ? height : width;
        const int upright_height = swaps_sides() ? width : height;
        if (options & WICBitmapTransformFlipHorizontal) x = upright_width - 1 - x;
        if (options & WICBitmapTransformFlipVertical) y = upright_height - 1 - y;
        int from_x = x;
        int from_y = y;
        if (quarter == WICBitmapTransformRotate90) {
            from_x = y;
            from_y = height - 1 - x;
        } else if (quarter == WICBitmapTransformRotate180) {
            from_x = width - 1 - x;
            from_y = height - 1 - y;
        } else if (quarter == WICBitmapTransformRotate270) {
            from_x = width - 1 - y;
            from_y = x;
        }
        return static_cast<std::size_t>(from_y) * static_cast<std::size_t>(width) +
               static_cast<std::size_t>(from_x);
    }
};

cDIBSection upright_on_paper(IWICBitmapSource& source, int orientation) {
    UINT w = 0;
    UINT h = 0;
    require(source.GetSize(&w, &h));
    const Turn turn{static_cast<int>(w), static_cast<int>(h), upright_turn(orientation)};
    const int width = turn.swaps_sides() ? turn.height : turn.width;
    const int height = turn.swaps_sides() ? turn.width : turn.height;
    cDIBSection picture = create_picture(width, height);
    std::vector<std::uint8_t> pixels = decoded_pixels(source, turn.width, turn.height);
    if (turn.options != 0) {
        std::vector<std::uint8_t> turned(pixels.size());
        std::uint8_t* to = turned.data();
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x, to += 4)
                std::copy_n(pixels.data() + 4 * turn.source_index(x, y), 4, to);
        pixels.swap(turned);
    }
    put_on_white_paper(pixels.data(), std::ptrdiff_t{4} * width, {4, 0, 1, 2, 3}, picture);
    return picture;
}

} // namespace

std::optional<cDIBSection> read_with_wic(std::span<const std::uint8_t> file_bytes) {
    const ComPointer<IWICImagingFactory> factory = create_factory();
    const ComPointer<IStream> stream = stream_over(file_bytes);
    IWICBitmapDecoder* found = nullptr;
    if (FAILED(factory->CreateDecoderFromStream(stream.get(), nullptr,
                                                WICDecodeMetadataCacheOnDemand, &found)))
        return std::nullopt;
    const ComPointer<IWICBitmapDecoder> decoder(found);
    const ComPointer<IWICBitmapFrameDecode> image = chosen_frame(*decoder);
    const auto converter = obtain<IWICFormatConverter>(
        [&](IWICFormatConverter** out) { return factory->CreateFormatConverter(out); });
    require(converter->Initialize(image.get(), GUID_WICPixelFormat32bppBGRA,
                                  WICBitmapDitherTypeNone, nullptr, 0, WICBitmapPaletteTypeCustom));
    return upright_on_paper(*converter, exif_orientation(file_bytes));
}

} // namespace kelvane
