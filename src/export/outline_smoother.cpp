#include "export/outline_smoother.h"

#include "export/square_ends.h"

#include <algorithm>

namespace kelvane {
namespace {

// A piece may end in the middle of a run this long: a shallow line comes closer to it there than to
// the corners.
constexpr std::int32_t kLongRun = 5 * kPixelSteps;

// So many pieces of a ring are looked at to find a good node to start from.
constexpr int kPiecesToStart = 8;
// Pieces for which vertices are searched at first, to find a good one to start from.
constexpr std::size_t kStartPieces = 3;

// How much further from the wall of the tube the roomy pieces are.
constexpr std::int32_t kRoom = 2 * kStepParts;

// What may be added to an area or taken from it: 0.4 pixels, in halves of a square lattice step; or
// the part of the whole area; or one half step for so much of the border, 1/512 pixels a pixel.
constexpr std::int64_t kAreaAllowed = 4 * (2 * kPixelSteps * kPixelSteps) / 10;
constexpr std::int64_t kAreaPart = 101;
constexpr std::int64_t kLengthPerArea = kPixelSteps;

// Below a third of a pixel only slopes of 45 degrees can be followed for long, and those from a
// quarter on. Other lines found in the wider tube have too few vertices on the lattice.
std::int32_t pieces_radius(std::int32_t radius) {
    return 3 * radius < kPixelParts ? std::min(radius, kPixelParts / 4) : radius;
}

bool on_pixel_corner(LatticePoint p) {
    return p.x % kPixelSteps == 0 && p.y % kPixelSteps == 0;
}

// The corner of pixels in the middle between two points of which one is such a corner.
LatticePoint middle(LatticePoint a, LatticePoint b) {
    if (!on_pixel_corner(a)) std::swap(a, b);
    const std::int32_t x = (b.x - a.x) / (2 * kPixelSteps), y = (b.y - a.y) / (2 * kPixelSteps);
    return {a.x + x * kPixelSteps, a.y + y * kPixelSteps};
}

} // namespace

OutlineSmoother::OutlineSmoother(std::int32_t radius, OutlineReceiver& receiver)
    : receiver_(receiver), tube_(radius), longest_pieces_(Tube(pieces_radius(radius))),
      roomy_pieces_(Tube(radius - kRoom)), joints_(Tube(radius)), search_(Tube(radius)) {}

void OutlineSmoother::begin_outline() {
    lowered_ = any_kept_ = false;
    head_.clear();
    exact_.clear();
    smooth_.clear();
    length_ = area_ = 0;
}

void OutlineSmoother::add_vertices(std::span<const OutlineVertex> vertices) {
    for (const OutlineVertex& vertex : vertices)
        add_vertex(vertex);
}

void OutlineSmoother::add_vertex(const OutlineVertex& vertex) {
    const bool lowered = lowered_ || vertex.bridge;
    lowered_ = vertex.bridge;
    exact_.push_back(
        {vertex.x * kPixelSteps, vertex.y * kPixelSteps - (lowered ? kPixelSteps / 2 : 0)});
    if (!vertex.kept) return;
    const LatticePoint kept = exact_.back();
    if (any_kept_) {
        end_section(false);
    } else {
        any_kept_ = true;
        head_ = exact_;
    }
    smooth_.push_back({vertex.x * kPixelSteps, vertex.y * kPixelSteps, vertex.bridge, true});
    exact_.assign(1, kept);
}

void OutlineSmoother::end_outline() {
    if (any_kept_) {
        exact_.insert(exact_.end(), head_.begin(), head_.end());
        end_section(false);
    } else {
        exact_.push_back(exact_.front());
        end_section(true);
    }
    drop_collinear();
    hand_over();
}

// Adds the vertices between the first and the last of a section, or all of a ring.
void OutlineSmoother::end_section(bool ring) {
    std::int64_t area = 0;
    for (std::size_t i = 1; i < exact_.size(); ++i) {
        length_ += distance(exact_[i - 1], exact_[i]);
        area += cross(exact_[i - 1], exact_[i]);
    }
    area_allowed_ =
        std::max(kAreaAllowed, ring ? std::abs(area) / kAreaPart : length_ / kLengthPerArea);
    for (StraightPieces* pieces : {&longest_pieces_, &roomy_pieces_}) {
        if (ring ? smooth_ring(*pieces) : smooth_section(*pieces)) return;
        if (pieces_.empty()) break;
    }
    for (std::size_t i = 1; i < exact_.size() - (ring ? 0 : 1); ++i)
        add_smooth(exact_[i]);
}

// From one kept vertex to the next.
bool OutlineSmoother::smooth_section(StraightPieces& straight_pieces) {
    fill_path(false);
    if (!find_pieces(straight_pieces, true)) return false;
    square_ends(path_, tube_, false, pieces_);
    joints_.move(path_, pieces_);
    const SmoothVertex first{path_[0], 0}, last{path_[path_.last()], path_.last()};
    if (!find_vertices(first, last, area_)) return false;
    const std::span<const SmoothVertex> found = search_.vertices();
    for (const SmoothVertex& vertex : found.subspan(1, found.size() - 2))
        add_smooth(vertex.at);
    return true;
}

// An outline without a kept vertex.
bool OutlineSmoother::smooth_ring(StraightPieces& straight_pieces) {
    fill_path(true);
    turn_path(find_corner(straight_pieces));
    if (!find_pieces(straight_pieces, false)) return false;
    square_ends(path_, tube_, true, pieces_);
    joints_.move(path_, pieces_);
    const SmoothVertex start = find_start();
    start_pieces_at(start.node);
    const SmoothVertex first{start.at, 0}, last{start.at, path_.last()};
    if (!find_vertices(first, last, 0)) return false;
    for (const SmoothVertex& vertex : search_.vertices().subspan(1))
        add_smooth(vertex.at);
    return true;
}

// A node of a ring that ends a long piece, so that no piece from there on is cut in two.
OutlineSmoother::Index OutlineSmoother::find_corner(StraightPieces& straight_pieces) {
    Index corner = 0;
    std::int32_t longest = 0;
    Index begin = straight_pieces.longest_from(path_, 0);
    for (int piece = 0; piece < kPiecesToStart && begin < path_.last(); ++piece) {
        const Index end = straight_pieces.longest_from(path_, begin);
        if (const std::int32_t length = distance(path_[begin], path_[end]); length > longest) {
            longest = length;
            corner = end;
        }
        begin = end;
    }
    return corner % path_.last();
}

// The vertex at the first joint of a ring, with regard to the pieces around it.
SmoothVertex OutlineSmoother::find_start() {
    const std::size_t count = std::min(kStartPieces, pieces_.size() - 1);
    std::vector<SmoothVertex> first, last;
    search_.candidates(path_, pieces_.back(), pieces_.front(), first);
    search_.candidates(path_, pieces_[count - 1], pieces_[count], last);
    std::int64_t area = 0;
    search_.run(path_, std::span(pieces_).first(count), first, last, area);
    // Both pieces keep a part.
    const Index joint = pieces_[0].end;
    SmoothVertex start{path_[joint], joint};
    Index least = path_.size();
    for (const SmoothVertex& vertex : search_.vertices()) {
        if (vertex.node <= pieces_[0].begin || vertex.node >= pieces_[1].end) continue;
        const Index distance = std::max(vertex.node, joint) - std::min(vertex.node, joint);
        if (distance < least) {
            least = distance;
            start = vertex;
        }
    }
    return start;
}

// Lets the ring and its pieces start behind the first one, at a node near by.
void OutlineSmoother::start_pieces_at(Index start) {
    turn_path(start);
    std::rotate(pieces_.begin(), pieces_.begin() + 1, pieces_.end());
    for (StraightPiece& piece : pieces_) {
        piece.begin = (piece.begin + path_.last() - start) % path_.last();
        piece.end = (piece.end + path_.last() - start) % path_.last();
    }
    pieces_.front().begin = 0;
    pieces_.back().end = path_.last();
}

// Finds the vertices between two; false when they change the area too much. `area` is what the
// edges before have added.
bool OutlineSmoother::find_vertices(const SmoothVertex& first, const SmoothVertex& last,
                                    std::int64_t area) {
    search_.run(path_, pieces_, {&first, 1}, {&last, 1}, area);
    for (const bool ends_too : {false, true}) {
        search_.make_up_for(path_, ends_too, area);
        if (std::abs(area) > area_allowed_) continue;
        area_ = area;
        return true;
    }
    return false;
}

// Whether the middle of the pixel inside the turn at a vertex may be touched by other edges: the
// outline has a third side of the pixel as well, or what is known of it ends next to the turn.
bool OutlineSmoother::shares_bend(std::size_t vertex, bool ring) const {
    const std::size_t last = exact_.size() - 1; // the first again in a ring
    const auto is_end = [&](std::size_t i) { return !ring && (i == 0 || i == last); };
    if (is_end(vertex)) return false; // no turn
    const auto before = [&](std::size_t i) { return i == 0 ? last - 1 : i - 1; };
    const auto behind = [&](std::size_t i) { return i == last ? 1 : i + 1; };
    const auto left = [&](std::size_t i) {
        return turn(exact_[before(i)], exact_[i], exact_[behind(i)]) > 0;
    };
    for (const std::size_t i : {before(vertex), behind(vertex)})
        if (distance(exact_[i], exact_[vertex]) <= kPixelSteps &&
            (is_end(i) || left(i) == left(vertex)))
            return true;
    return false;
}

void OutlineSmoother::fill_path(bool ring) {
    path_.clear();
    path_.append(exact_.front(), shares_bend(0, ring));
    for (std::size_t i = 1; i < exact_.size(); ++i) {
        const LatticePoint a = exact_[i - 1], b = exact_[i];
        if (distance(a, b) >= kLongRun) path_.append(middle(a, b), false);
        path_.append(b, shares_bend(i, ring));
    }
}

// Lets a closed path start at another node.
void OutlineSmoother::turn_path(Index start) {
    const Index nodes = path_.last();
    turned_.clear();
    for (Index i = 0; i <= nodes; ++i)
        turned_.append(path_[(start + i) % nodes], path_.shared((start + i) % nodes));
    std::swap(path_, turned_);
}

// Splits the path into pieces; false, with none, when all of them are straight: then nothing is to
// be done.
bool OutlineSmoother::find_pieces(StraightPieces& straight_pieces, bool kept_ends) {
    straight_pieces.split(path_, kept_ends, ends_);
    bool slanted = false;
    for (std::size_t i = 1; i < ends_.size(); ++i)
        slanted = slanted || !axis_parallel(path_[ends_[i - 1]], path_[ends_[i]]);
    pieces_.clear();
    if (!slanted) return false;
    for (std::size_t i = 1; i < ends_.size(); ++i)
        pieces_.push_back(straight_pieces.piece(path_, ends_[i - 1], ends_[i]));
    return true;
}

// Neighbouring edges in one line become one; they may meet in a kept vertex.
void OutlineSmoother::drop_collinear() {
    std::vector<OutlineVertex>& v = smooth_;
    // A bridge begins and ends in turns. No outline starts with the end of one.
    const auto lowered = [&](std::size_t i) { return v[i].bridge || (i > 0 && v[i - 1].bridge); };
    const auto point = [&](std::size_t i) {
        return LatticePoint{v[i].x, v[i].y - (lowered(i) ? kPixelSteps / 2 : 0)};
    };
    const auto in_line = [&](std::size_t a, std::size_t b, std::size_t c) {
        return !lowered(b) && turn(point(a), point(b), point(c)) == 0;
    };
    std::size_t size = 0;
    for (const OutlineVertex vertex : v) {
        v[size++] = vertex;
        while (size >= 3 && in_line(size - 3, size - 2, size - 1)) {
            v[size - 2] = v[size - 1];
            --size;
        }
    }
    while (size >= 3 && in_line(size - 2, size - 1, 0))
        --size;
    v.resize(size);
    if (size >= 3 && in_line(size - 1, 0, 1)) v.erase(v.begin());
}

void OutlineSmoother::hand_over() {
    const auto start = std::min_element(smooth_.begin(), smooth_.end(),
                                        [](const OutlineVertex& a, const OutlineVertex& b) {
                                            return std::pair(a.y, a.x) < std::pair(b.y, b.x);
                                        });
    receiver_.begin_outline();
    receiver_.add_vertices({start, smooth_.end()});
    receiver_.add_vertices({smooth_.begin(), start});
    receiver_.end_outline();
}

} // namespace kelvane
