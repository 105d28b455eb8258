#include "image/jpeg_format.h"

#include "image/jpeg_scan.h"

#include <algorithm>
#include <numeric>

namespace kelvane {
namespace {

constexpr std::uint8_t kHuffmanTables = 0xC4;
constexpr std::uint8_t kEnd = 0xD9;
constexpr std::uint8_t kScan = 0xDA;
constexpr std::uint8_t kRestartInterval = 0xDD;

// Whether a marker comes without a segment: TEM, restart, start and end marks.
bool stands_alone(std::uint8_t marker) {
    return marker == 0x01 || (marker >= 0xD0 && marker <= kEnd);
}

// C0 to CF but for the tables (C4, CC) and an extension (C8).
bool begins_frame(std::uint8_t marker) {
    return marker >= 0xC0 && marker <= 0xCF && marker != kHuffmanTables && marker != 0xC8 &&
           marker != 0xCC;
}

// Reads the segments and parses the scans of a file.
class Reader {
  public:
    explicit Reader(Bytes file) : file_(file), segments_(file) {}

    Completeness completeness() {
        while (segments_.next())
            if (const auto found = read_segment(); found != Completeness::Complete) return found;
        return complete_if(segments_.marker() == kEnd && has_all_components());
    }

  private:
    Completeness read_segment() {
        const std::uint8_t marker = segments_.marker();
        if (begins_frame(marker)) return read_frame(segments_.content());
        if (marker == kHuffmanTables) return complete_if(read_tables(segments_.content()));
        if (marker == kScan) return complete_if(read_scan(segments_.content()));
        if (marker == kRestartInterval)
            restart_interval_ = static_cast<int>(number(segments_.content(), 0, 2));
        return Completeness::Complete;
    }

    static std::uint32_t number(Bytes content, std::size_t at, std::size_t length) {
        return number_at(content, at, length, ByteOrder::Big);
    }

    Completeness read_frame(Bytes content) {
        frame_.height = static_cast<int>(number(content, 1, 2));
        frame_.width = static_cast<int>(number(content, 3, 2));
        const std::size_t components = number(content, 5, 1);
        if (!frame_.components.empty() || components < 1 || components > 4 ||
            content.size() < 6 + 3 * components)
            return Completeness::Damaged;
        for (std::size_t i = 0; i < components; ++i)
            if (!add_component(content.subspan(6 + 3 * i))) return Completeness::Damaged;
        frame_.progressive = segments_.marker() == 0xC2;
        huffman_coded_ = segments_.marker() <= 0xC2;
        const auto size = size_completeness(frame_.width, frame_.height);
        return size == Completeness::Complete ? complete_if(make_room_for_blocks()) : size;
    }

    bool add_component(Bytes content) {
        JpegComponent component;
        component.id = content[0];
        component.h = content[1] >> 4;
        component.v = content[1] & 15;
        frame_.components.push_back(component);
        return component.h >= 1 && component.h <= 4 && component.v >= 1 && component.v <= 4;
    }

    // False when the file cannot hold the frame: an MCU takes a bit at least.
    bool make_room_for_blocks() {
        const std::int64_t mcus = std::int64_t{frame_.mcus_across()} * frame_.mcus_down();
        if (huffman_coded_ && mcus > 8 * static_cast<std::int64_t>(file_.size())) return false;
        for (JpegComponent& component : frame_.components)
            if (frame_.progressive)
                component.nonzero.resize(
                    static_cast<std::size_t>(mcus * component.h * component.v));
        return true;
    }

    bool read_tables(Bytes content) {
        while (content.size() > 16) {
            const std::size_t place = content[0] & 15;
            auto& tables = content[0] >> 4 == 0 ? dc_tables_ : ac_tables_;
            const Bytes counts = content.subspan(1, 16);
            const auto symbols =
                static_cast<std::size_t>(std::accumulate(counts.begin(), counts.end(), 0));
            if (place >= tables.size() || symbols > content.size() - 17) return false;
            if (!tables[place].define(counts, content.subspan(17, symbols))) return false;
            content = content.subspan(17 + symbols);
        }
        return true;
    }

    bool read_scan(Bytes content) {
        const std::size_t components = number(content, 0, 1);
        if (++scans_ > kMostScans || components < 1 || components > 4 ||
            content.size() < 4 + 2 * components)
            return false;
        JpegScan scan;
        for (std::size_t i = 0; i < components; ++i)
            if (!add_to_scan(scan, content.subspan(1 + 2 * i))) return false;
        scan.first = content[1 + 2 * components];
        scan.last = content[2 + 2 * components];
        const std::uint8_t bits = content[3 + 2 * components];
        scan.refines = bits >> 4 != 0;
        scan.last_bits = (bits & 15) == 0;
        if (frame_.progressive &&
            (scan.first > scan.last || scan.last > 63 || (scan.first > 0 && components > 1)))
            return false;
        return follow(scan);
    }

    bool add_to_scan(JpegScan& scan, Bytes content) {
        const auto component = std::ranges::find(frame_.components, content[0], &JpegComponent::id);
        const std::size_t dc = content[1] >> 4;
        const std::size_t ac = content[1] & 15;
        if (component == frame_.components.end() || dc > 3 || ac > 3) return false;
        scan.components.push_back({&*component, &dc_tables_[dc], &ac_tables_[ac]});
        return true;
    }

    // The coefficients that have all their bits after the scan.
    std::uint64_t brought_by(const JpegScan& scan) const {
        if (!frame_.progressive) return kAllCoefficients;
        if (!scan.last_bits) return 0;
        return kAllCoefficients >> scan.first << scan.first << (63 - scan.last) >> (63 - scan.last);
    }

    bool follow(const JpegScan& scan) {
        const bool needs_dc = !frame_.progressive || (scan.first == 0 && !scan.refines);
        const bool needs_ac = !frame_.progressive || scan.first > 0;
        const std::uint64_t brought = brought_by(scan);
        bool can_follow = huffman_coded_;
        for (const JpegScanComponent& each : scan.components) {
            each.component->complete |= brought;
            can_follow = can_follow && (!needs_dc || each.dc->defined()) &&
                         (!needs_ac || each.ac->defined());
        }
        std::size_t end = segments_.end();
        if (can_follow) {
            const auto followed = follow_scan(file_, end, frame_, scan, restart_interval_);
            if (!followed) return false;
            end = *followed;
        }
        segments_ = JpegSegments(file_, end);
        return true;
    }

    bool has_all_components() const {
        return !frame_.components.empty() &&
               std::ranges::all_of(frame_.components, [](const JpegComponent& component) {
                   return component.complete == kAllCoefficients;
               });
    }

    // Encoders write some ten scans; a file of very many is an attempt to occupy the decoder.
    static constexpr int kMostScans = 100;
    static constexpr std::uint64_t kAllCoefficients = ~std::uint64_t{0};

    Bytes file_;
    JpegSegments segments_;
    JpegFrame frame_;
    std::array<JpegHuffmanTable, 4> dc_tables_;
    std::array<JpegHuffmanTable, 4> ac_tables_;
    int restart_interval_ = 0;
    int scans_ = 0;
    bool huffman_coded_ = false;
};

} // namespace

bool is_jpeg(Bytes file_bytes) {
    return begins_with(file_bytes, "\xFF\xD8\xFF");
}

bool JpegSegments::next() {
    if (marker_ == kScan || marker_ == kEnd) return false;
    do {
        at_ = next_jpeg_marker(file_, at_);
        marker_ = static_cast<std::uint8_t>(number_at(file_, at_ + 1, 1));
        at_ += 2;
    } while (stands_alone(marker_) && marker_ != kEnd);
    const std::size_t length = number_at(file_, at_, 2, ByteOrder::Big);
    if (marker_ == kEnd) return false;
    if (length < 2 || !holds(file_, at_, length)) {
        marker_ = 0;
        return false;
    }
    content_ = file_.subspan(at_ + 2, length - 2);
    at_ += length;
    return true;
}

Bytes jpeg_exif(Bytes file_bytes) {
    constexpr std::uint8_t kApp1 = 0xE1;
    constexpr std::string_view kExif{"Exif\0\0", 6};
    for (JpegSegments segments(file_bytes); segments.next();)
        if (segments.marker() == kApp1 && begins_with(segments.content(), kExif))
            return segments.content().subspan(kExif.size());
    return {};
}

Completeness jpeg_completeness(Bytes file_bytes) {
    return Reader(file_bytes).completeness();
}

} // namespace kelvane
