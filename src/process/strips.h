// The walk of the neighbourhood filters over a picture, and its events.
#pragma once

#include "image/image_view.h"
#include "image/progress.h"
#include "process/filter_rows.h"
#include "process/filter_target.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace kelvane {

/// Prefetches bytes: hardware prefetching does not follow from one row to the next.
inline void prefetch(const std::uint8_t* bytes, int count) {
    constexpr int kLine = 64;
    for (int k = 0; k < count; k += kLine)
        __builtin_prefetch(bytes + k);
}

/// Passes results to `done` as soon as the walk no longer reads the source at their place. The next
/// strip still reads the last `half` pixels of a strip, so their results are kept until then.
class HandOver {
  public:
    /// `reach` is the byte width of half a kernel.
    HandOver(const TargetRows& to, const PartDone& done, int reach, bool several_strips, int height)
        : to_(to), done_(done), reach_(reach),
          waiting_(static_cast<std::size_t>(several_strips ? reach * height : 0)) {}

    /// Bytes `begin` to `end` of row y are filtered; `more` says that strips follow.
    void row(int begin, int end, bool more, int y) {
        const std::uint8_t* filtered = to_.row(y);
        if (begin > reach_) done_(begin - reach_, reach_, y, waiting(y));
        const int sure = more ? end - reach_ : end;
        done_(begin, sure - begin, y, filtered + begin);
        if (more) std::memcpy(waiting(y), filtered + sure, static_cast<std::size_t>(reach_));
    }

  private:
    // Only with several strips.
    std::uint8_t* waiting(int y) { return waiting_.data() + std::ptrdiff_t{reach_} * y; }

    const TargetRows& to_;
    const PartDone& done_;
    int reach_;
    std::vector<std::uint8_t> waiting_; // `reach_` bytes a row
};

/// Calls on_span(byte, count, y) for `count` bytes, kLongestSpan at most, from byte offset `byte`
/// of row y until every pixel of the picture that is at least `half` pixels away from all borders
/// was visited once, in strips of `strip` columns (more than `half`). The results are expected in
/// `to` and handed to `done`, which may be empty.
template <typename OnSpan>
void walk_interior(const ConstImageView& picture, int half, int strip, const TargetRows& to,
                   const ProgressReporter& progress, const PartDone& done, OnSpan on_span) {
    const int reach = 3 * half;
    const int end = 3 * picture.width - reach;
    HandOver hand_over(to, done, reach, end - reach > 3 * strip, picture.height);
    progress.init(end - 3);
    for (int begin = reach, next = 0; begin < end; begin = next) {
        next = begin + std::min(3 * strip, end - begin);
        const auto finish = [&](int y) {
            if (done && y >= half) hand_over.row(begin, next, next < end, y);
        };
        for (int y = half; y < picture.height - half; ++y) {
            // At the last row, that row again.
            const std::uint8_t* upcoming = picture.row(std::min(y + half + 1, picture.height - 1));
            for (int byte = begin; byte < next; byte += kLongestSpan) {
                const int count = std::min(kLongestSpan, next - byte);
                prefetch(upcoming + byte, count);
                on_span(byte, count, y);
            }
            finish(y - half);
        }
        for (int y = std::max(picture.height - 2 * half, half); y < picture.height - half; ++y)
            finish(y);
        for (int x = begin; x < next; x += 3)
            progress.at(x);
    }
    progress.complete();
}

} // namespace kelvane
