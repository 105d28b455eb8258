#include "dialogs/field_input.h"

#include <gtest/gtest.h>

namespace kelvane {
namespace {

TEST(FieldInput, OnlyTheWholeTextIsANumber) {
    EXPECT_EQ(whole_number(L" -12\t"), -12);
    EXPECT_EQ(whole_number(L"2147483647"), 2147483647);
    EXPECT_EQ(decimal_number(L"-,5 "), -0.5);
    EXPECT_EQ(decimal_number(L"1.25"), 1.25);
    for (const wchar_t* text :
         {L"", L"  ", L"12x", L"1 2", L"2147483648", L"\x0131", L"\x0661", L"0x10"})
        EXPECT_EQ(whole_number(text), std::nullopt) << testing::PrintToString(text);
    for (const wchar_t* text : {L"", L"1,2,3", L"1.5 mm", L"1e999"})
        EXPECT_EQ(decimal_number(text), std::nullopt) << testing::PrintToString(text);
    EXPECT_EQ(whole_number(L"100", 0, 100), 100);
    EXPECT_EQ(whole_number(L"-1", 0, 100), std::nullopt);
    EXPECT_EQ(whole_number(L"101", 0, 100), std::nullopt);
}

} // namespace
} // namespace kelvane
