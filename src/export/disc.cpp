#include "export/disc.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace kelvane {
namespace {

using Word = BitPicture::Word;
constexpr int kWordPixels = BitPicture::kWordPixels;

struct And {
    static Word of(Word a, Word b) { return a & b; }
};
struct Or {
    static Word of(Word a, Word b) { return a | b; }
};

// Combines pixel x of `to` with pixel x + dx of `from`, |dx| < 64.
template <typename Op>
void combine_row(Word* __restrict to, const Word* __restrict from, int words, int dx) {
    if (dx == 0) {
        for (int i = 0; i < words; ++i)
            to[i] = Op::of(to[i], from[i]);
        return;
    }
    if (dx < 0) --from;
    const int right = (dx + kWordPixels) % kWordPixels, left = kWordPixels - right;
    for (int i = 0; i < words; ++i)
        to[i] = Op::of(to[i], from[i] >> right | from[i + 1] << left);
}

// Combines every pixel with the original of the one `dx` columns and `dy` rows away, |dx| < 64.
template <typename Op> void combine_shifted(BitPicture& picture, int dx, int dy) {
    const int words = picture.row_words(), height = picture.height();
    std::vector<Word> other(static_cast<std::size_t>(words) + 2);
    for (int i = 0; i < height; ++i) {
        const int y = dy < 0 ? height - 1 - i : i; // rows are read before they change
        const Word* from = other.data() + 1;
        if (dy == 0)
            std::copy_n(picture.row(y), words, other.data() + 1);
        else if (y + dy >= 0 && y + dy < height)
            from = picture.row(y + dy);
        combine_row<Op>(picture.row(y), from, words, dx);
    }
}

// Combines every pixel with the `steps` pixels that follow it at distances of (dx, dy). Each pass
// doubles the span that is combined.
template <typename Op> void combine_segment(BitPicture& picture, int dx, int dy, int steps) {
    const int longest = (kWordPixels - 1) / std::max(1, std::abs(dx));
    for (int done = 0; done < steps;) {
        const int shift = std::min({done + 1, steps - done, longest});
        combine_shifted<Op>(picture, shift * dx, shift * dy);
        done += shift;
    }
}

} // namespace

// The directions' shares are those of the sides of an octagon or, from 12 pixels on, a 16-gon
// around a circle. They are rounded in favour of the straight segments.
Disc::Disc(int diameter) : diameter_(diameter) {
    const int steps = diameter - 1;
    const int knights = steps < 11 ? 0 : static_cast<int>(.0892 * steps + .25);
    const int rest = steps - 6 * knights;
    const int share = static_cast<int>(std::lround((knights == 0 ? .2929 : .2465) * rest));
    // At least one straight step: diagonals alone reach only every second pixel.
    const int diagonals = std::min(share, std::max(0, rest - 1) / 2);
    const int straight = rest - 2 * diagonals;
    segments_ = {{{1, 0, straight},
                  {0, 1, straight},
                  {1, 1, diagonals},
                  {-1, 1, diagonals},
                  {2, 1, knights},
                  {1, 2, knights},
                  {-1, 2, knights},
                  {-2, 1, knights}}};
}

void Disc::erode(BitPicture& picture) const {
    for (const Segment& segment : segments_)
        combine_segment<And>(picture, segment.dx, segment.dy, segment.steps);
}

void Disc::dilate(BitPicture& picture) const {
    for (const Segment& segment : segments_)
        combine_segment<Or>(picture, -segment.dx, -segment.dy, segment.steps);
}

void Disc::open(BitPicture& picture) const {
    erode(picture);
    dilate(picture);
}

void Disc::close(BitPicture& picture) const {
    const int width = picture.width(), height = picture.height();
    // What is set moves to the left by the segments that lean to the left.
    int left = 0;
    for (const Segment& segment : segments_)
        left += std::max(0, -segment.dx) * segment.steps;
    const int left_words = (left + kWordPixels - 1) / kWordPixels;
    BitPicture wide(left_words * kWordPixels + width + diameter_ - 1 - left,
                    height + diameter_ - 1);
    for (int y = 0; y < height; ++y)
        std::copy_n(picture.row(y), picture.row_words(), wide.row(y) + left_words);
    picture = {}; // its memory is free for others meanwhile
    dilate(wide);
    erode(wide);
    wide.crop(left_words, width, height);
    picture = std::move(wide);
}

} // namespace kelvane
