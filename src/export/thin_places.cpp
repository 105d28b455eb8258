#include "export/thin_places.h"

#include "export/row_bits.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>
#include <vector>

namespace kelvane {
namespace {

using Word = BitPicture::Word;

// An area of the residue. Where it meets the core, the pixels that discs cover, it has contact:
// unit sides between pixels of both, and vertices of the pixel grid at which both have a pixel.
struct Area {
    std::int64_t pixels = 0;
    std::int64_t level_sides = 0;
    std::int64_t upright_sides = 0;
    std::int64_t vertices = 0;
    int x = 0; // a pixel of it, where places are looked for if it has one there
    int y = 0;
    bool within = false; // has one there

    void add(const Area& other) {
        pixels += other.pixels;
        level_sides += other.level_sides;
        upright_sides += other.upright_sides;
        vertices += other.vertices;
        if (within || !other.within) return;
        x = other.x;
        y = other.y;
        within = true;
    }
};

bool is_thin_place(const Area& area, double radius) {
    if (area.vertices == 0) return true;
    const auto pixels = static_cast<double>(area.pixels);
    // A line of contact has one vertex more than sides; a ring around a disc has none more.
    const std::int64_t contacts = area.vertices - area.level_sides - area.upright_sides;
    const double contact = std::hypot(area.level_sides, area.upright_sides) /
                           static_cast<double>(std::max<std::int64_t>(contacts, 1));
    // The area of an arm is its length times the contact. That of a corner is 0.3 radius times the
    // contact at 60 degrees, 0.9 at 30, 1.5 at 20. Two pixels are for the coarseness of the grid.
    if (pixels > (1.5 * radius + 2) * std::max(contact, 1.)) return true;
    // Links may be short. Holes of single pixels near a rough edge make small ones.
    return contacts > 1 && pixels > .3 * radius * radius;
}

// A row of bits with a word more at each end.
class RowBits {
  public:
    explicit RowBits(int words) : words_(static_cast<std::size_t>(words) + 2) {}
    Word* data() { return words_.data() + 1; }
    const Word* data() const { return words_.data() + 1; }
    Word word(int i) const { return data()[i]; }
    // Pixel -1 and the one behind the last word are there, too.
    bool get(int x) const { return word((x + 64) / 64 - 1) >> (x + 64) % 64 & 1; }
    // Bit x tells whether the row has a pixel at vertex x: pixel x or x - 1.
    Word vertices(int i) const { return word(i) | word(i) << 1 | word(i - 1) >> 63; }

  private:
    std::vector<Word> words_;
};

struct Row {
    explicit Row(int words) : residue(words), core(words) {}
    RowBits residue;
    RowBits core;
};

// Goes through the rows from the bottom up. Besides the pictures it keeps three rows and the areas
// that may still grow.
class AreaFinder {
  public:
    AreaFinder(const BitPicture& dark, WidthOf what, int diameter, BitPicture& residue,
               const BitPicture* within)
        : dark_(dark), invert_(what == WidthOf::Gaps ? ~Word{0} : 0), radius_(diameter / 2.),
          residue_(residue), within_(within), below_(dark.row_words()), here_(below_),
          above_(below_), lower_contact_(dark.row_words()), upper_contact_(lower_contact_),
          near_core_(lower_contact_) {}

    ThinPlaces run(ProgressObserver* observer) {
        const ProgressReporter progress(observer);
        progress.init(dark_.height());
        load(-1, here_);
        load(0, above_);
        for (int y = 0; y <= dark_.height() && !done(); ++y) {
            std::swap(below_, here_);
            std::swap(here_, above_);
            load(y + 1, above_);
            add_row(y);
            progress.at(y);
        }
        return places_;
    }

  private:
    using Label = std::uint32_t; // index into `areas_`
    static constexpr Label kNone = ~Label{0};

    bool done() const { return within_ && places_.count != 0; }

    // Rows outside the picture are light, as are the words at the ends.
    void load(int y, Row& row) const {
        const bool outside = y < 0 || y >= dark_.height();
        for (int i = -1; i <= dark_.row_words(); ++i) {
            const Word residue = outside ? 0 : residue_.row(y)[i];
            const Word dark = outside ? 0 : dark_.row(y)[i];
            row.residue.data()[i] = residue;
            row.core.data()[i] = (dark ^ invert_) & ~residue;
        }
    }

    // Which vertices at the lower and at the upper side of this row are contact if the row has
    // residue there. A vertex at which the row above has residue as well counts there.
    void find_contact() {
        for (int i = 0; i <= dark_.row_words(); ++i) {
            const Word below = below_.core.vertices(i), here = here_.core.vertices(i);
            const Word above = above_.core.vertices(i);
            lower_contact_.data()[i] = below | here;
            upper_contact_.data()[i] = (here | above) & ~above_.residue.vertices(i);
            near_core_.data()[i] = below | here | above;
        }
    }

    void grow(Area& area, const Run& run, int y) const {
        area.pixels += run.end - run.begin;
        if (within_ && !area.within) look_within(area, run, y);
        const Run vertices{run.begin, run.end + 1};
        if (first_bit(near_core_.data(), vertices) == vertices.end) return;
        area.vertices += count_bits(lower_contact_.data(), vertices) +
                         count_bits(upper_contact_.data(), vertices);
        area.level_sides +=
            count_bits(below_.core.data(), run) + count_bits(above_.core.data(), run);
        area.upright_sides += here_.core.get(run.begin - 1) + here_.core.get(run.end);
    }

    void look_within(Area& area, const Run& run, int y) const {
        const int column = first_bit(within_->row(y), run);
        if (column == run.end) return;
        area.x = column;
        area.y = y;
        area.within = true;
    }

    Label leader(Label label) {
        while (leaders_[label] != label)
            label = leaders_[label] = leaders_[leaders_[label]];
        return label;
    }

    // The area of a run: those of the runs that it touches below, joined, or a new one. `lower` is
    // the first run below that may touch it.
    Label area_of(const Run& run, int y, std::size_t& lower) {
        while (lower < lower_runs_.size() && lower_runs_[lower].end < run.begin)
            ++lower;
        Label joined = kNone;
        for (std::size_t i = lower; i < lower_runs_.size() && lower_runs_[i].begin <= run.end;
             ++i) {
            const Label touched = leader(lower_labels_[i]);
            if (joined == kNone) joined = touched;
            if (joined == touched) continue;
            areas_[joined].add(areas_[touched]);
            leaders_[touched] = joined;
        }
        if (joined != kNone) return joined;
        areas_.push_back({.x = run.begin, .y = y});
        leaders_.push_back(static_cast<Label>(leaders_.size()));
        return leaders_.back();
    }

    void add_row(int y) {
        runs_.clear();
        labels_.clear();
        append_runs_of_row(
            dark_.width(), [&](int i) { return here_.residue.word(i); }, runs_);
        if (!runs_.empty()) find_contact();
        std::size_t lower = 0;
        for (const Run& run : runs_) {
            labels_.push_back(area_of(run, y, lower));
            grow(areas_[labels_.back()], run, y);
        }
        close_areas();
        lower_runs_.swap(runs_);
        lower_labels_.swap(labels_);
    }

    // Judges the areas that this row does not reach and numbers the others anew.
    void close_areas() {
        renumbered_.assign(areas_.size(), kNone);
        open_areas_.clear();
        for (Label& label : labels_) {
            const Label old = leader(label);
            if (renumbered_[old] == kNone) {
                renumbered_[old] = static_cast<Label>(open_areas_.size());
                open_areas_.push_back(areas_[old]);
            }
            label = renumbered_[old];
        }
        for (Label i = 0; i < areas_.size(); ++i)
            if (leaders_[i] == i && renumbered_[i] == kNone) judge(areas_[i]);
        areas_.swap(open_areas_);
        leaders_.resize(areas_.size());
        std::iota(leaders_.begin(), leaders_.end(), Label{0});
    }

    void judge(const Area& area) {
        if (!is_thin_place(area, radius_)) return erase(area);
        if (done() || (within_ && !area.within)) return;
        ++places_.count;
        const auto pixels = static_cast<std::uint64_t>(area.pixels);
        if (pixels <= places_.pixels) return;
        places_.pixels = pixels;
        places_.x = area.x;
        places_.y = area.y;
    }

    void erase(const Area& area) {
        residue_.clear(area.x, area.y);
        erased_.assign(1, {area.x, area.y});
        while (!erased_.empty()) {
            const auto [x, y] = erased_.back();
            erased_.pop_back();
            const int right = std::min(x + 1, dark_.width() - 1);
            const int top = std::min(y + 1, dark_.height() - 1);
            for (int ny = std::max(0, y - 1); ny <= top; ++ny)
                for (int nx = std::max(0, x - 1); nx <= right; ++nx) {
                    if (!residue_.get(nx, ny)) continue;
                    residue_.clear(nx, ny);
                    erased_.emplace_back(nx, ny);
                }
        }
    }

    const BitPicture& dark_;
    const Word invert_;
    const double radius_;
    BitPicture& residue_;
    const BitPicture* within_;
    Row below_, here_, above_;
    RowBits lower_contact_, upper_contact_, near_core_;
    std::vector<Run> runs_, lower_runs_; // of this row and of the one below
    std::vector<Label> labels_, lower_labels_;
    std::vector<Area> areas_; // those that reach the row below and this one
    std::vector<Label> leaders_;
    std::vector<Area> open_areas_;
    std::vector<Label> renumbered_;
    std::vector<std::pair<int, int>> erased_; // neighbours still to be cleared
    ThinPlaces places_;
};

} // namespace

ThinPlaces keep_thin_places(const BitPicture& dark, WidthOf what, int diameter, BitPicture& residue,
                            ProgressObserver* observer) {
    return AreaFinder(dark, what, diameter, residue, nullptr).run(observer);
}

ThinPlaces find_thin_place(const BitPicture& dark, WidthOf what, int diameter, BitPicture& residue,
                           const BitPicture& within, ProgressObserver* observer) {
    return AreaFinder(dark, what, diameter, residue, &within).run(observer);
}

} // namespace kelvane
