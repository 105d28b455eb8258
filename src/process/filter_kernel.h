// The convolution kernel: its cells, its weight, and the predefined ones.
#pragma once

#include <array>
#include <cstdint>

namespace kelvane {

/// A square of coefficients and the divisor of their sum. Cell (i, j) weighs the pixel i columns
/// to the right and j memory rows further (rows are bottom-up: j = +1 is the row above on screen).
class FilterKernel {
  public:
    static constexpr int kLargestSize = 9;

    /// `size` is odd, 1 to 9; all cells are 0 and the weight as given.
    explicit FilterKernel(int size = 1, std::int32_t weight = 0)
        : half_(size / 2), weight_(weight) {}

    int size() const { return 2 * half_ + 1; }
    int half() const { return half_; }
    std::int32_t weight() const { return weight_; }
    void set_weight(std::int32_t weight) { weight_ = weight; }
    /// i and j run from -half() to +half().
    std::int32_t cell(int i, int j) const { return cells_[index(i, j)]; }
    void set_cell(int i, int j, std::int32_t value) { cells_[index(i, j)] = value; }
    bool contains(int i, int j) const {
        return i >= -half_ && i <= half_ && j >= -half_ && j <= half_;
    }

  private:
    static std::size_t index(int i, int j) {
        constexpr int kReach = kLargestSize / 2;
        return static_cast<std::size_t>((j + kReach) * kLargestSize + i + kReach);
    }
    int half_;
    std::int32_t weight_;
    std::array<std::int32_t, kLargestSize * kLargestSize> cells_{};
};

/// What `cImageProcessDIB::FilterType` takes.
enum FilterType : int {
    kBlur = 1,
    kBlurMore,
    kSoften,
    kSoftenMore,
    kSharpen,
    kSharpenMore,
    kUnsharp,
    kEmboss,
    kMeanRank,
    kMinimumRank,
    kMaximumRank,
    kReserved,
    kEmphasizeFirst,  // image to buffer, the image stays
    kEmphasizeSecond, // buffer to image
    kCustom,
};

/// True for the types that bring a kernel of their own.
bool has_predefined_kernel(int filter_type);

/// That kernel with its weight.
FilterKernel predefined_kernel(int filter_type);

} // namespace kelvane
