#include "export/piece_joints.h"

#include <algorithm>
#include <cmath>

namespace kelvane {
namespace {

// A joint moves by this many pixels at most.
constexpr int kFarthest = 8;
// The sine of the angle between two lines that are taken for parallel.
constexpr double kParallel = .01;

LatticePoint point_at(const ExactPath& path, ExactPath::Index link, std::int32_t offset) {
    const LatticePoint step = unit_step(path.leaving(link));
    return {path[link].x + offset * step.x, path[link].y + offset * step.y};
}

// The lines' common point and what it costs to have the vertex near one corner of pixels instead.
class Meeting {
  public:
    Meeting(const StraightPiece& a, const StraightPiece& b) : a_(a), b_(b) {
        sine_ = a.line.sine_to(b.line);
        const double ca = a.line.nx * a.line.x + a.line.ny * a.line.y;
        const double cb = b.line.nx * b.line.x + b.line.ny * b.line.y;
        x_ = (ca * b.line.ny - cb * a.line.ny) / sine_;
        y_ = (a.line.nx * cb - b.line.nx * ca) / sine_;
    }
    bool parallel() const { return std::abs(sine_) < kParallel; }
    double cost(LatticePoint corner, double reach) const {
        const double x = std::clamp(x_, corner.x - reach, corner.x + reach);
        const double y = std::clamp(y_, corner.y - reach, corner.y + reach);
        const auto area = [&](const StraightPiece& piece) {
            return piece.length *
                   (piece.line.nx * (x - piece.line.x) + piece.line.ny * (y - piece.line.y));
        };
        return area(a_) * area(a_) + area(b_) * area(b_);
    }

  private:
    const StraightPiece& a_;
    const StraightPiece& b_;
    double sine_, x_, y_;
};

} // namespace

void PieceJoints::move(ExactPath& path, std::vector<StraightPiece>& pieces) {
    joints_.clear();
    nodes_.clear();
    joints_.push_back({pieces.front().begin, 0});
    for (std::size_t i = 1; i < pieces.size(); ++i) {
        const Place joint = best_place(path, pieces[i - 1], pieces[i], joints_.back());
        joints_.push_back(joint);
        Place before = joint, behind = joint;
        for (const Place place : {step_back(path, before) ? before : joint, joint,
                                  step_forward(path, behind) ? behind : joint})
            if (nodes_.empty() || nodes_.back() < place) nodes_.push_back(place);
    }
    joints_.push_back({pieces.back().end, 0});
    add_nodes(path, pieces);
}

// To the next corner of pixels; false at the end of the path and where it stops between two.
bool PieceJoints::step_forward(const ExactPath& path, Place& place) const {
    if (place.link >= path.last()) return false;
    place.offset += kPixelSteps;
    const std::int32_t length = path.link_length(place.link);
    if (place.offset == length) place = {place.link + 1, 0};
    return place.offset < length;
}

bool PieceJoints::step_back(const ExactPath& path, Place& place) const {
    if (place.offset == 0) {
        if (place.link == 0) return false;
        --place.link;
        place.offset = path.link_length(place.link);
    }
    place.offset -= kPixelSteps;
    return place.offset >= 0;
}

// Whether the piece's line passes a corner that is not yet in the piece, the link behind it
// included.
bool PieceJoints::follows(const ExactPath& path, const StraightPiece& piece, Index corner) const {
    const FittedLine& line = piece.line;
    const auto ahead = [&](Heading heading) {
        const LatticePoint step = unit_step(heading);
        return step.x * line.ny - step.y * line.nx > 0;
    };
    if (!ahead(path.leaving(corner - 1)) || !ahead(path.leaving(corner))) return false;
    const double offset = line.offset(tube_.hinge(path, corner));
    return path.turns_left(corner) ? offset > 0 : offset < 0;
}

PieceJoints::Place PieceJoints::best_place(const ExactPath& path, const StraightPiece& before,
                                           const StraightPiece& behind, Place lower_limit) const {
    Place best{behind.begin, 0};
    const Meeting meeting(before, behind);
    if (meeting.parallel()) return best;
    const double reach = tube_.vertex_reach();
    double least = meeting.cost(path[behind.begin], reach);
    const auto offer = [&](Place place) {
        const double cost = meeting.cost(point_at(path, place.link, place.offset), reach);
        if (cost < least) {
            least = cost;
            best = place;
        }
    };
    const auto leaves = [&](Place place, const StraightPiece& piece) {
        return place.offset == 0 && path.is_corner(place.link) && !follows(path, piece, place.link);
    };
    Place place{behind.begin, 0};
    for (int i = 0; i < kFarthest && !leaves(place, before); ++i) {
        if (!step_forward(path, place) || place >= Place{behind.end, 0}) break;
        offer(place);
    }
    place = {behind.begin, 0};
    for (int i = 0; i < kFarthest && !leaves(place, behind); ++i) {
        if (!step_back(path, place) || place <= lower_limit) break;
        offer(place);
    }
    return best;
}

void PieceJoints::add_nodes(ExactPath& path, std::vector<StraightPiece>& pieces) {
    denser_.clear();
    std::size_t joint = 0, added = 0;
    const auto append = [&](Place place) {
        denser_.append(point_at(path, place.link, place.offset),
                       place.offset == 0 && path.shared(place.link));
        if (joint == joints_.size() || joints_[joint] != place) return;
        if (joint > 0) pieces[joint - 1].end = denser_.last();
        if (joint < pieces.size()) pieces[joint].begin = denser_.last();
        ++joint;
    };
    for (Index node = 0; node < path.size(); ++node) {
        append({node, 0});
        for (; added < nodes_.size() && nodes_[added].link == node; ++added)
            if (nodes_[added].offset > 0) append(nodes_[added]);
    }
    std::swap(path, denser_);
}

} // namespace kelvane
