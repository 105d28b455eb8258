// Pictures through gdk-pixbuf.
#include "image/picture_reader.h"

#include <gdk-pixbuf/gdk-pixbuf.h>

#include <memory>

namespace kelvane {
namespace {

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
using Pixbuf = std::unique_ptr<GdkPixbuf, Unref>;
using Loader = std::unique_ptr<GdkPixbufLoader, Unref>;

[[noreturn]] void fail(GError* error) {
    const std::string cause = error && error->message ? error->message : "not a picture";
    g_clear_error(&error);
    throw FileError(cause);
}

} // namespace

cDIBSection decode_picture(std::span<const std::uint8_t> file_bytes) {
    const Loader loader(gdk_pixbuf_loader_new());
    GError* error = nullptr;
    const bool fed =
        gdk_pixbuf_loader_write(loader.get(), file_bytes.data(), file_bytes.size(), &error);
    const bool closed = gdk_pixbuf_loader_close(loader.get(), fed ? &error : nullptr);
    if (!fed || !closed) fail(error);
    GdkPixbuf* decoded = gdk_pixbuf_loader_get_pixbuf(loader.get());
    if (!decoded) fail(nullptr);
    const Pixbuf upright(gdk_pixbuf_apply_embedded_orientation(decoded));

    cDIBSection picture;
    const int width = gdk_pixbuf_get_width(upright.get());
    const int height = gdk_pixbuf_get_height(upright.get());
    if (!picture.Create(width, height)) throw FileError("the picture is too large");
    const int channels = gdk_pixbuf_get_n_channels(upright.get());
    const int step = gdk_pixbuf_get_rowstride(upright.get());
    const guint8* pixels = gdk_pixbuf_read_pixels(upright.get());
    for (int y = 0; y < height; ++y) {
        const guint8* from = pixels + static_cast<std::ptrdiff_t>(step) * y;
        std::uint8_t* to = picture.view().row(height - 1 - y);
        for (int x = 0; x < width; ++x, from += channels, to += 3) {
            const int alpha = channels == 4 ? from[3] : 255;
            for (int c = 0; c < 3; ++c)
                to[c] = static_cast<std::uint8_t>(
                    (from[2 - c] * alpha + 255 * (255 - alpha) + 127) / 255);
        }
    }
    return picture;
}

} // namespace kelvane
