#include "dialogs/kernel_grid.h"

#include <gtest/gtest.h>

namespace kelvane {
namespace {

KernelGrid with(int cell, int value) {
    KernelGrid grid;
    grid.set_value(cell, value);
    return grid;
}

TEST(KernelGridTest, KernelIsTheSmallestSquareThatHoldsEverything) {
    EXPECT_EQ(KernelGrid().radius(), std::nullopt);
    EXPECT_EQ(KernelGrid::reset().radius(), 0);

    const FilterKernel corner = with(48, 3).kernel(5);
    EXPECT_EQ(corner.size(), 7);
    EXPECT_EQ(corner.weight(), 5);
    EXPECT_EQ(corner.cell(3, 3), 3) << "the lowest row is the kernel's last";

    const FilterKernel two_right = with(KernelGrid::kCentre + 2, -4).kernel(1);
    EXPECT_EQ(two_right.size(), 5);
    EXPECT_EQ(two_right.cell(2, 0), -4);
    EXPECT_EQ(with(KernelGrid::kCentre - 7, 1).kernel(1).cell(0, -1), 1);
}

} // namespace
} // namespace kelvane
