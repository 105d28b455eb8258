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

TEST(KernelGridTest, KernelsComeBackAsTheyWere) {
    for (int type = kBlur; type <= kSharpenMore; ++type) {
        const FilterKernel kernel = predefined_kernel(type);
        const KernelGrid grid = KernelGrid::around(kernel);
        EXPECT_EQ(grid.sum(), kernel.weight()) << type;
        const FilterKernel again = grid.kernel(kernel.weight());
        ASSERT_EQ(again.size(), kernel.size()) << type;
        for (int j = -kernel.half(); j <= kernel.half(); ++j)
            for (int i = -kernel.half(); i <= kernel.half(); ++i)
                EXPECT_EQ(again.cell(i, j), kernel.cell(i, j)) << type << ": " << i << ", " << j;
    }
}

TEST(KernelGridTest, OnlyWholeNumbersAreNumbers) {
    EXPECT_EQ(whole_number(L"12", 99999), 12);
    EXPECT_EQ(whole_number(L" -7 ", 99999), -7);
    EXPECT_EQ(whole_number(L"99999999999999999999", 99999), 99999);
    EXPECT_EQ(whole_number(L"-99999999999999999999", 99999), -99999);
    for (const wchar_t* text : {L"", L" ", L"-", L"--1", L"1-", L"1.5", L"12a", L"1 2"})
        EXPECT_EQ(whole_number(text, 99999), std::nullopt) << testing::PrintToString(text);
}

} // namespace
} // namespace kelvane
