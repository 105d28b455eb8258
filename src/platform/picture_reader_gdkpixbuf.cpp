// Pictures through gdk-pixbuf.
#include "image/picture_reader.h"
#include "platform/paper.h"
#include "platform/whole_file.h"

#include <gdk-pixbuf/gdk-pixbuf.h>

#include <algorithm>
#include <memory>
#include <string>

namespace kelvane {
namespace {

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
using Pixbuf = std::unique_ptr<GdkPixbuf, Unref>;
using Loader = std::unique_ptr<GdkPixbufLoader, Unref>;

constexpr std::int64_t kLargestPicture = std::int64_t{1} << 31;

// Called before the loader takes memory for the pixels; a size of 0 makes it stop.
void refuse_huge_sizes(GdkPixbufLoader* loader, int width, int height, gpointer refused) {
    if (std::int64_t{width} * height <= kLargestPicture / 3) return;
    *static_cast<bool*>(refused) = true;
    gdk_pixbuf_loader_set_size(loader, 0, 0);
}

[[noreturn]] void fail(GError* error) {
    std::string cause = error && error->message ? error->message : "not a picture";
    g_clear_error(&error);
    std::replace(cause.begin(), cause.end(), '\n', ' ');
    throw FileError(cause);
}

void feed(GdkPixbufLoader* loader, std::span<const std::uint8_t> file_bytes) {
    bool refused = false;
    g_signal_connect(loader, "size-prepared", G_CALLBACK(refuse_huge_sizes), &refused);
    GError* error = nullptr;
    const bool fed =
        gdk_pixbuf_loader_write(loader, file_bytes.data(), file_bytes.size(), &error) != FALSE;
    // Closing tells of a file that ended too early.
    const bool closed = gdk_pixbuf_loader_close(loader, fed ? &error : nullptr) != FALSE;
    if (refused) {
        g_clear_error(&error);
        throw FileError("the picture is too large");
    }
    if (!fed || !closed) fail(error);
}

// A moving picture's first image; the loader itself would give the last one decoded.
Pixbuf first_image(GdkPixbufLoader* loader) {
    GdkPixbufAnimation* animation = gdk_pixbuf_loader_get_animation(loader);
    GdkPixbuf* image = animation ? gdk_pixbuf_animation_get_static_image(animation) : nullptr;
    if (!image) fail(nullptr);
    return Pixbuf(gdk_pixbuf_apply_embedded_orientation(image));
}

} // namespace

cDIBSection decode_picture(std::span<const std::uint8_t> file_bytes) {
    require_whole_file(file_bytes);
    const Loader loader(gdk_pixbuf_loader_new());
    feed(loader.get(), file_bytes);
    const Pixbuf upright = first_image(loader.get());
    if (!upright) throw FileError("not enough memory for the picture");

    cDIBSection picture =
        create_picture(gdk_pixbuf_get_width(upright.get()), gdk_pixbuf_get_height(upright.get()));
    const int channels = gdk_pixbuf_get_n_channels(upright.get());
    put_on_white_paper(gdk_pixbuf_read_pixels(upright.get()),
                       gdk_pixbuf_get_rowstride(upright.get()),
                       {channels, 2, 1, 0, channels == 4 ? 3 : -1}, picture);
    return picture;
}

} // namespace kelvane
