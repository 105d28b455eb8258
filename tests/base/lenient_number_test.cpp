#include "base/lenient_number.h"

#include <gtest/gtest.h>

#include <limits>

namespace kelvane {
namespace {

TEST(LenientNumber, TakesTheNumberThatTheTextBeginsWith) {
    EXPECT_EQ(lenient_number("0.5"), 0.5);
    EXPECT_EQ(lenient_number(" \t-2.5e3 mil"), -2500);
    EXPECT_EQ(lenient_number("+.25"), 0.25);
    EXPECT_EQ(lenient_number("5."), 5);
    EXPECT_EQ(lenient_number("0,5"), 0);
    EXPECT_EQ(lenient_number("1E"), 1);
    EXPECT_EQ(lenient_number(L"12\x4E2D"), 12);
}

TEST(LenientNumber, IsZeroForWhatIsNone) {
    for (const char* text : {"", "   ", "abc", "-", "+", ".", "-.", "--1", "+-1", "inf", "nan",
                             "-infinity", "e5", "1e999", "&H10"})
        EXPECT_EQ(lenient_number(text), 0) << text;
    // The low bytes of these are the digits 1 and 2.
    EXPECT_EQ(lenient_number(L"\x0131\x4E32"), 0);
}

TEST(LenientNumber, IntegersAreRoundedToEvenAndHeldInRange) {
    EXPECT_EQ(lenient_integer(L"2.5"), 2);
    EXPECT_EQ(lenient_integer(L"-3.5"), -4);
    EXPECT_EQ(lenient_integer(L"1e300"), std::numeric_limits<int>::max());
    EXPECT_EQ(lenient_integer(L"-99999999999"), std::numeric_limits<int>::min());
}

} // namespace
} // namespace kelvane
