// Pictures through gdk-pixbuf.
#include "image/bitmap_format.h"
#include "image/picture_reader.h"
#include "image/tiff_format.h"
#include "image/upright_picture.h"

#include <gdk-pixbuf/gdk-pixbuf.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace kelvane {
namespace {

constexpr PixelLayout kRgb = {3, 2, 1, 0, -1};
constexpr PixelLayout kRgba = {4, 2, 1, 0, 3};
constexpr PixelLayout kPremultipliedRgba = {4, 2, 1, 0, 3, true};

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
using Pixbuf = std::unique_ptr<GdkPixbuf, Unref>;
using Loader = std::unique_ptr<GdkPixbufLoader, Unref>;

// One line without the full stop, as messages follow a file's name.
std::string phrase(std::string text) {
    for (char& c : text)
        if (c == '\n' || c == '\r') c = ' ';
    text.erase(text.find_last_not_of(" .") + 1);
    return text;
}

[[noreturn]] void fail(GError* error) {
    const bool unknown = !error || !error->message ||
                         g_error_matches(error, GDK_PIXBUF_ERROR, GDK_PIXBUF_ERROR_UNKNOWN_TYPE);
    const FileError failure =
        unknown ? FileError(FileFault::UnknownFormat) : FileError(phrase(error->message));
    g_clear_error(&error);
    throw failure;
}

// What the loader tells while it reads.
struct Progress {
    bool too_large = false;
    // Rows that have come; empty until the first one. Loaders leave those that a short file does
    // not hold as they are, and report no error.
    std::vector<bool> rows;

    bool complete() const {
        return !rows.empty() && std::find(rows.begin(), rows.end(), false) == rows.end();
    }
};

// Called with the size that the file claims, before there is memory for it. Asked for a picture of
// no pixels, a loader takes none and gives up.
void on_size(GdkPixbufLoader* loader, gint width, gint height, gpointer progress) {
    if (cDIBSection::fits(width, height)) return;
    static_cast<Progress*>(progress)->too_large = true;
    gdk_pixbuf_loader_set_size(loader, 0, 0);
}

void on_area(GdkPixbufLoader* loader, gint, gint y, gint, gint height, gpointer progress) {
    std::vector<bool>& rows = static_cast<Progress*>(progress)->rows;
    if (rows.empty()) {
        const int all = gdk_pixbuf_get_height(gdk_pixbuf_loader_get_pixbuf(loader));
        rows.resize(static_cast<std::size_t>(all));
    }
    const int end = std::min(y + height, static_cast<int>(rows.size()));
    for (int row = std::max(y, 0); row < end; ++row)
        rows[static_cast<std::size_t>(row)] = true;
}

bool feed(GdkPixbufLoader* loader, Bytes bytes, const Progress& progress, GError** error) {
    // The GIF loader's time grows with the number of blocks and with the size of a block.
    constexpr std::size_t kBlock = std::size_t{1} << 20;
    while (!bytes.empty() && !progress.too_large) {
        const std::size_t size = std::min(kBlock, bytes.size());
        if (!gdk_pixbuf_loader_write(loader, bytes.data(), size, error)) return false;
        bytes = bytes.subspan(size);
    }
    return true;
}

Pixbuf decode(Bytes bytes) {
    const Loader loader(gdk_pixbuf_loader_new());
    Progress progress;
    g_signal_connect(loader.get(), "size-prepared", G_CALLBACK(on_size), &progress);
    g_signal_connect(loader.get(), "area-updated", G_CALLBACK(on_area), &progress);
    GError* error = nullptr;
    const bool fed = feed(loader.get(), bytes, progress, &error);
    const bool closed = gdk_pixbuf_loader_close(loader.get(), fed ? &error : nullptr);
    if (progress.too_large) {
        g_clear_error(&error);
        throw FileError(FileFault::TooLarge);
    }
    GdkPixbuf* decoded = gdk_pixbuf_loader_get_pixbuf(loader.get());
    if (!fed || !closed || !decoded) fail(error);
    if (!progress.complete()) throw FileError(FileFault::Damaged);
    return Pixbuf(static_cast<GdkPixbuf*>(g_object_ref(decoded)));
}

// Whether the pixels of a bitmap begin before the end of its colour table. gdk-pixbuf reads no such
// file, but takes memory for the whole picture before it gives up. Other loaders do read it: the
// table may be shorter than the header says.
bool has_pixels_in_table(Bytes file_bytes) {
    constexpr std::size_t kOffsetPlace = 10, kFileHeader = 14;
    if (!is_bitmap(file_bytes)) return false;
    const auto header = read_dib_header(bytes_from(file_bytes, kFileHeader));
    return header && header->bits <= 8 &&
           number_at(file_bytes, kOffsetPlace, 4) <
               kFileHeader + header->bytes + header->palette_bytes;
}

int orientation_of(GdkPixbuf* decoded) {
    const char* mark = gdk_pixbuf_get_option(decoded, "orientation");
    return mark ? std::atoi(mark) : 1;
}

// libtiff multiplies the channels of a colour picture by its alpha, except where the file does not
// say what its fourth channel is; it leaves grey pictures as they are.
bool is_premultiplied(Bytes file_bytes) {
    constexpr std::uint32_t kPhotometric = 262;
    constexpr std::uint32_t kExtraSamples = 338;
    constexpr std::uint32_t kBlackIsZero = 1; // 0 is white is zero, above are colours
    enum : std::uint32_t { kUnspecified, kPremultipliedAlpha };
    if (!is_tiff(file_bytes)) return false;
    const TiffDirectory directory(file_bytes);
    const std::uint32_t extra = directory.number(kExtraSamples, kUnspecified);
    const bool grey = directory.number(kPhotometric, 0) <= kBlackIsZero;
    return grey ? extra == kPremultipliedAlpha : extra != kUnspecified;
}

const PixelLayout& layout_of(GdkPixbuf* decoded, Bytes file_bytes) {
    if (!gdk_pixbuf_get_has_alpha(decoded)) return kRgb;
    return is_premultiplied(file_bytes) ? kPremultipliedRgba : kRgba;
}

} // namespace

void decode_rows(Bytes file_bytes, UprightPicture& picture) {
    if (has_pixels_in_table(file_bytes)) throw FileError(FileFault::Damaged);
    const Pixbuf decoded = decode(file_bytes);
    const int height = gdk_pixbuf_get_height(decoded.get());
    const std::ptrdiff_t step = gdk_pixbuf_get_rowstride(decoded.get());
    const guint8* pixels = gdk_pixbuf_read_pixels(decoded.get());
    const PixelLayout& layout = layout_of(decoded.get(), file_bytes);
    picture.begin(gdk_pixbuf_get_width(decoded.get()), height, orientation_of(decoded.get()));
    for (int y = 0; y < height; ++y)
        picture.put_row(y, pixels + step * y, layout);
}

} // namespace kelvane
