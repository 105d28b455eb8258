// cImageProcessDIB, the engine's interface to windows and command line.
#pragma once

#include "base/random_source.h"
#include "engine/engine_error.h"
#include "export/vectorize.h"
#include "image/dib_section.h"
#include "image/progress.h"
#include "process/combine.h"
#include "process/filter_kernel.h"
#include "process/geometry.h"
#include "process/palette.h"
#include "reduce/reduction.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace kelvane {

/// One per document. It works on the pictures handed to each call and holds only the current
/// kernel, the receiver of its events and the state of its random numbers.
///
/// Operations return true when they ran. Pictures that do not fit together (empty, two sizes
/// where one is needed) are left alone and give false.
class cImageProcessDIB {
  public:
    /// `executable_name` is the program's name as errors show it. Starts with the filter Blur.
    explicit cImageProcessDIB(std::string executable_name = "kelvane");

    /// Receives `InitProgress`, `Progress` and `Complete` of every operation; null for nobody.
    /// It must outlive the engine or be replaced.
    void set_observer(ProgressObserver* observer) { observer_ = observer; }

    // Filters.

    /// 1 to 15 (see `FilterType` in process/filter_kernel.h). Setting one but `kCustom` resets the
    /// weight and, where the filter has a kernel, builds it. Throws `EngineError` 0x8004051A
    /// (16100) on any other number.
    int FilterType() const { return filter_type_; }
    void set_FilterType(int type);
    /// 1, 3, 5, 7 or 9; setting it clears every cell. Throws `EngineError` 0x80040519 (16101) on
    /// an even number, 0x8004051A (16102) on any other.
    int FilterArraySize() const { return kernel_.size(); }
    void set_FilterArraySize(int size);
    /// One cell, x to the right and y up, each -half to +half. Throws `std::out_of_range`.
    std::int32_t FilterValue(int x, int y) const;
    void set_FilterValue(int x, int y, std::int32_t value);
    /// What each channel's sum is divided by. A convolution with weight 0 is refused.
    std::int32_t FilterWeight() const { return kernel_.weight(); }
    void set_FilterWeight(std::int32_t weight) { kernel_.set_weight(weight); }
    /// Whether a coordinate of the last export left EAGLE's range; the filters never set it.
    bool RangeOVL() const { return range_ovl_; }

    /// Applies the current filter to `cImage`; `cBuffer` is a picture of the same size whose
    /// content is lost. `kEmphasizeFirst` leaves its result in the buffer, `kEmphasizeSecond`
    /// takes the buffer as its source. False too for `kReserved` and for a weight of 0.
    bool ProcessImage(cDIBSection& cImage, cDIBSection& cBuffer);

    // Combination; see process/combine.h. `cFrom` must be at least as large as `cTo`.

    bool Combine(const cDIBSection& cFrom, cDIBSection& cTo, const Combination& combination);
    bool AddLightest(const cDIBSection& cFrom, cDIBSection& cTo) {
        return Combine(cFrom, cTo, {CombinationType::AddLightest});
    }
    bool AddDarkest(const cDIBSection& cFrom, cDIBSection& cTo) {
        return Combine(cFrom, cTo, {CombinationType::AddDarkest});
    }
    bool AddImages(const cDIBSection& cFrom, cDIBSection& cTo, int lFromMultiplier,
                   int lFromOffsetR, int lFromOffsetG, int lFromOffsetB, int lToMultiplier,
                   int lToOffsetR, int lToOffsetG, int lToOffsetB) {
        return Combine(cFrom, cTo,
                       {CombinationType::AddImages,
                        {{{lFromMultiplier, lFromOffsetR, lFromOffsetG, lFromOffsetB},
                          {lToMultiplier, lToOffsetR, lToOffsetG, lToOffsetB}}}});
    }

    // Tone and colour, in place; see process/grayscale.h and process/tone.h.

    bool GrayScale(cDIBSection& cImage);
    bool Fade(cDIBSection& cImage, int level);
    bool Lighten(cDIBSection& cImage, int percent);
    /// `fSaturation` is ignored: pixels keep theirs.
    bool Colourise(cDIBSection& cImage, float fHue, float fSaturation = 0);
    bool AddNoise(cDIBSection& cImage, int percent, bool bRandom = false);
    bool NegativeImage(cDIBSection& cImage);
    /// Starts the random numbers of `AddNoise` anew; the same seed gives the same noise.
    void seed_noise(std::uint32_t seed) { random_ = RandomSource(seed); }

    // Palettes; `cBuffer` is a picture of the same size that ends up holding the result as well.
    // See process/diffusion.h. An empty palette is refused.

    bool ApplyPalette(cDIBSection& cImage, cDIBSection& cBuffer, const cPalette& cPal);
    bool Steinberg(cDIBSection& cImage, cDIBSection& cBuffer);

    // Reductions; see reduce/reduction.h, reduce/black_white.h, reduce/local_black_white.h and
    // reduce/otsu.h. Those that are not `possible` are refused.

    /// Reduces `cImage` in place, with every step of `reduction`. The column and the row that
    /// `EdgeDetect2` does not write stay as they were in `cImage`, or negative, until the removal
    /// of specks makes them black and white.
    bool Reduce(cDIBSection& cImage, const Reduction& reduction) {
        return Reduce(cImage, cImage, reduction);
    }
    bool Reduce(cDIBSection& cSource, cDIBSection& cDestination, const Reduction& reduction);
    bool BlackAndWhite(cDIBSection& cSource, cDIBSection& cDestination, int limit) {
        return Reduce(cSource, cDestination, {ReductionKind::Brightness, limit});
    }
    bool BlackAndWhite2(cDIBSection& cSource, cDIBSection& cDestination, int limit) {
        return BlackAndWhite(cSource, cDestination, limit);
    }
    bool LineArt2(cDIBSection& cSource, cDIBSection& cDestination, int limit, Channels channels) {
        return Reduce(cSource, cDestination, {ReductionKind::Colours, limit, channels});
    }
    bool EdgeDetect2(cDIBSection& cSource, cDIBSection& cDestination, int limit) {
        return Reduce(cSource, cDestination, {ReductionKind::Edges, limit});
    }
    bool LocalBlackWhite(cDIBSection& cSource, cDIBSection& cDestination, int size, int offset) {
        return Reduce(cSource, cDestination,
                      {.kind = ReductionKind::UnevenLight, .neighbourhood = {size, offset}});
    }
    /// The limit for `BlackAndWhite` that suits the picture; nothing for an empty one.
    std::optional<int> OtsuLimit(const cDIBSection& cImage);
    /// Removes areas of at most `most` pixels (0 and more) from what an export would draw and from
    /// what lies between; see process/despeckle.h.
    bool Despeckle(cDIBSection& cImage, int most);

    // Geometry; see process/geometry.h. Where the size changes, a new picture takes the place of
    // `cImage`; false, and `cImage` as it was, when there is no memory for it.

    /// The smallest rectangle with all that an export takes for dark; nothing when there is none.
    std::optional<PixelRect> DarkBounds(const cDIBSection& cImage);
    /// Keeps `part`, with `margin` white pixels on each side (0 to 1000000). False too when the
    /// part does not lie inside the picture.
    bool Crop(cDIBSection& cImage, const PixelRect& part, int margin = 0);
    bool Mirror(cDIBSection& cImage);
    bool Flip(cDIBSection& cImage);
    bool RotateHalf(cDIBSection& cImage);
    bool RotateRight(cDIBSection& cImage);
    bool RotateLeft(cDIBSection& cImage);
    static constexpr int kLargestMargin = 1000000;

    // Export; see export/vectorize.h.

    /// Traces a picture that holds only black and white and writes the script. Sets `RangeOVL`
    /// anew. An empty picture writes nothing. Throws `FileError`.
    ExportReport Vectorize(const cDIBSection& cImage, const std::filesystem::path& FileName,
                           const ExportOptions& options);

  private:
    bool run_convolution(ImageView image, ImageView buffer);
    bool rotate_quarter(cDIBSection& cImage,
                        void (*rotate)(ConstImageView, ImageView, ProgressObserver*));

    std::string executable_name_;
    ProgressObserver* observer_ = nullptr;
    int filter_type_;
    bool range_ovl_ = false;
    FilterKernel kernel_;
    RandomSource random_;
};

} // namespace kelvane
