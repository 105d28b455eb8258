// Combining two pictures pixel by pixel, the second being the target.
#pragma once

#include "image/image_view.h"
#include "image/progress.h"
#include "process/filter_rows.h"

#include <array>
#include <cstdint>

namespace kelvane {

// The loops run over the target; the source must be at least as large. These operations report
// `Complete` only.

/// Brightness is 929 G + 71 B; red does not count. The target keeps the pixel with the *smaller*
/// one for AddLightest, with the larger one for AddDarkest, its own when they are equal.
void AddLightest(ConstImageView from, ImageView to, ProgressObserver* observer = nullptr);
void AddDarkest(ConstImageView from, ImageView to, ProgressObserver* observer = nullptr);

/// One picture's part in a weighted sum: a byte counts (byte + offset) x multiplier.
struct SumPart {
    std::int32_t multiplier = 1;
    std::int32_t offset_r = 0;
    std::int32_t offset_g = 0;
    std::int32_t offset_b = 0;

    bool operator==(const SumPart&) const = default;
};

/// Every target byte becomes the sum of both parts, in 32-bit arithmetic that wraps, clamped to
/// 0 .. 255. The offsets are paired in an odd way that callers rely on: the blue byte takes the
/// two R offsets, green the two G offsets, red the source's G and the target's B offset; the
/// source's B offset is not used.
void AddImages(ConstImageView from, ImageView to, const SumPart& from_part, const SumPart& to_part,
               ProgressObserver* observer = nullptr);

/// The three operations by their numbers in the combination dialog.
enum class CombinationType { AddImages = 1, AddLightest = 2, AddDarkest = 3 };

/// A combination with its arguments.
struct Combination {
    CombinationType type = CombinationType::AddImages;
    std::array<SumPart, 2> parts{}; ///< source and target, for `AddImages` only

    bool operator==(const Combination&) const = default;
};

/// Carries out the operation that `combination` stands for.
void Combine(ConstImageView from, ImageView to, const Combination& combination,
             ProgressObserver* observer = nullptr);

/// The sum alone, for spans of whole pixels; it raises no event.
class ByteAdder {
  public:
    ByteAdder(const SumPart& from_part, const SumPart& to_part);
    /// `count` bytes, starting with a pixel's blue; the spans do not overlap.
    void add(const std::uint8_t* from, std::uint8_t* to, int count) const {
        add_(from, to, count, sum_);
    }

  private:
    ByteSum sum_;
    decltype(FilterRows::add_narrow) add_;
};

} // namespace kelvane
