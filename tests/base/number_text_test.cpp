#include "base/number_text.h"

#include <gtest/gtest.h>

namespace kelvane {
namespace {

TEST(NumberToText, ShortGeneralForm) {
    EXPECT_EQ(NumberToText(0), "0");
    EXPECT_EQ(NumberToText(-0.0), "0");
    EXPECT_EQ(NumberToText(.5), ".5");
    EXPECT_EQ(NumberToText(-.25), "-.25");
    EXPECT_EQ(NumberToText(10), "10");
    EXPECT_EQ(NumberToText(3 * .1), ".3");
    EXPECT_EQ(NumberToText(1 / 3.), ".333333333333333");
    EXPECT_EQ(NumberToText(-1234567890.0625), "-1234567890.0625");
    EXPECT_EQ(NumberToText(1e14), "100000000000000");
    EXPECT_EQ(NumberToText(1e15), "1E+15");
    EXPECT_EQ(NumberToText(.0001), ".0001");
    EXPECT_EQ(NumberToText(.00001), "1E-05");
    EXPECT_EQ(NumberToText(-1.23456789012345e-300), "-1.23456789012345E-300");
}

} // namespace
} // namespace kelvane
