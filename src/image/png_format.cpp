#include "image/png_format.h"

#include <array>

#include <zlib.h>

namespace kelvane {
namespace {

constexpr std::string_view kSignature = "\x89PNG\r\n\x1A\n";
constexpr std::size_t kChunkFrame = 12; // length, name and checksum

struct Chunk {
    Bytes name_and_content;
    std::uint32_t checksum;

    bool named(std::string_view name) const { return begins_with(name_and_content, name); }
    Bytes content() const { return name_and_content.subspan(4); }
    /// Names of chunks that decoders may pass over begin with a small letter.
    bool critical() const { return (name_and_content[0] & 0x20) == 0; }
    bool checksum_is_right() const {
        return crc32(0, name_and_content.data(), static_cast<uInt>(name_and_content.size())) ==
               checksum;
    }
};

// The chunks one after the other.
class Chunks {
  public:
    explicit Chunks(Bytes file) : file_(file) {}

    /// False at the end of the file, and where the next chunk passes it.
    bool next(Chunk& chunk) {
        if (!holds(file_, at_, kChunkFrame)) return false;
        const std::size_t length = number_at(file_, at_, 4, ByteOrder::Big);
        if (!holds(file_, at_ + kChunkFrame, length)) return false;
        chunk = {file_.subspan(at_ + 4, 4 + length),
                 number_at(file_, at_ + 8 + length, 4, ByteOrder::Big)};
        at_ += kChunkFrame + length;
        return true;
    }

  private:
    Bytes file_;
    std::size_t at_ = kSignature.size();
};

struct Header {
    std::uint32_t width;
    std::uint32_t height;
    std::uint32_t bits_per_pixel; // 0 for a colour type that does not exist
    bool interlaced;
};

Header read_header(Bytes content) {
    constexpr std::array<std::uint32_t, 7> kChannels = {1, 0, 3, 1, 2, 0, 4};
    const std::uint32_t type = content[9];
    return {number_at(content, 0, 4, ByteOrder::Big), number_at(content, 4, 4, ByteOrder::Big),
            type < kChannels.size() ? kChannels[type] * content[8] : 0, content[12] != 0};
}

// Bytes of `width` x `height` pixels, each row with the byte that names its filter.
std::uint64_t bytes_of_rows(std::uint64_t width, std::uint64_t height, std::uint32_t bits) {
    return width == 0 ? 0 : height * ((width * bits + 7) / 8 + 1);
}

std::uint64_t uncompressed_bytes(const Header& header) {
    if (!header.interlaced)
        return bytes_of_rows(header.width, header.height, header.bits_per_pixel);
    struct Pass {
        std::uint32_t left, top, step_x, step_y;
    };
    constexpr Pass kPasses[] = {{0, 0, 8, 8}, {4, 0, 8, 8}, {0, 4, 4, 8}, {2, 0, 4, 4},
                                {0, 2, 2, 4}, {1, 0, 2, 2}, {0, 1, 1, 2}};
    std::uint64_t bytes = 0;
    for (const Pass& pass : kPasses)
        bytes += bytes_of_rows((header.width + pass.step_x - 1 - pass.left) / pass.step_x,
                               (header.height + pass.step_y - 1 - pass.top) / pass.step_y,
                               header.bits_per_pixel);
    return bytes;
}

// Counts what the compressed data holds, without keeping it.
class InflateCounter {
  public:
    explicit InflateCounter(std::uint64_t wanted) : wanted_(wanted) {
        ready_ = inflateInit(&stream_) == Z_OK;
    }
    ~InflateCounter() { inflateEnd(&stream_); }
    InflateCounter(const InflateCounter&) = delete;
    InflateCounter& operator=(const InflateCounter&) = delete;

    void feed(Bytes compressed) {
        // The library only reads from it.
        stream_.next_in = const_cast<Bytef*>(compressed.data());
        stream_.avail_in = static_cast<uInt>(compressed.size());
        while (ready_ && !has_all()) {
            stream_.next_out = scratch_.data();
            stream_.avail_out = static_cast<uInt>(scratch_.size());
            const int result = inflate(&stream_, Z_NO_FLUSH);
            ready_ = result == Z_OK || result == Z_BUF_ERROR; // the latter waits for the next chunk
            const std::size_t produced = scratch_.size() - stream_.avail_out;
            count_ += produced;
            if (produced < scratch_.size()) break;
        }
    }
    bool has_all() const { return count_ >= wanted_; }

  private:
    z_stream stream_{};
    std::array<Bytef, 65536> scratch_;
    std::uint64_t wanted_;
    std::uint64_t count_ = 0;
    bool ready_ = false;
};

bool data_is_complete(Chunks chunks, std::uint64_t wanted) {
    InflateCounter counter(wanted);
    for (Chunk chunk{}; chunks.next(chunk);) {
        if (chunk.critical() && !chunk.checksum_is_right()) return false;
        if (chunk.named("IDAT")) counter.feed(chunk.content());
        if (chunk.named("IEND")) return counter.has_all();
    }
    return false;
}

} // namespace

Bytes png_chunk(Bytes file_bytes, std::string_view name) {
    Chunks chunks(file_bytes);
    for (Chunk chunk{}; chunks.next(chunk);)
        if (chunk.named(name)) return chunk.content();
    return {};
}

bool is_png(Bytes file_bytes) {
    return begins_with(file_bytes, kSignature);
}

Completeness png_completeness(Bytes file_bytes) {
    constexpr std::size_t kHeaderLength = 13;
    Chunks chunks(file_bytes);
    Chunk first{};
    if (!chunks.next(first) || !first.named("IHDR") || first.content().size() != kHeaderLength ||
        !first.checksum_is_right())
        return Completeness::Damaged;
    const Header header = read_header(first.content());
    if (const auto size = size_completeness(header.width, header.height);
        size != Completeness::Complete)
        return size;
    return complete_if(header.bits_per_pixel > 0 &&
                       data_is_complete(chunks, uncompressed_bytes(header)));
}

} // namespace kelvane
