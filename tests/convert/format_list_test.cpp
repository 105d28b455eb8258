// The converter's output, taken apart.
#include "convert/format_list.h"
#include "convert/verbose_output.h"

#include <gmock/gmock.h>

namespace kelvane {
namespace {

constexpr const wchar_t* kRule = L"----------------------------------------------------\r\n";
constexpr const wchar_t* kLegend = L"\r\n* native blob support\r\nr read support\r\n"
                                   L"w write support\r\n+ support for multiple images\r\n";

// What is printed for the same formats by version 7, by version 6 with its modules, and by an old
// version 6.
std::vector<std::wstring> lists() {
    const std::wstring rows[] = {
        L"      CAL* rw-   Archive: Type 1\r\n           Specified in MIL-R-28002\r\n"
        L"      CIP* -w-   Phone image\r\n    YCbCr* rw+   Raw Y, Cb and Cr\r\n"
        L"RADIAL-GRADIENT* r--   Gradient\r\n",
        L"      CAL* CALS      rw-   Archive: Type 1\r\n           Specified in MIL-R-28002\r\n"
        L"      CIP* CIP       -w-   Phone image\r\n    YCbCr* YCbCr     rw+   Raw Y, Cb and Cr\r\n"
        L"RADIAL-GRADIENT* GRADIENT  r--   Gradient\r\n",
        L"  *CAL*  rw-   Archive: Type 1\n  CIP  -w-  Phone image\n*YCbCr rw+ Raw Y, Cb and Cr\n"
        L"RADIAL-GRADIENT  r--   Gradient\n"};
    std::vector<std::wstring> lists;
    for (const std::wstring& row : rows)
        lists.push_back(L"warning: colors.xml\r\n   Format  Mode  Description\r\n" +
                        std::wstring(kRule) + row + kLegend);
    return lists;
}

TEST(FormatList, EveryVersionsOutputGivesTheSameTable) {
    for (const std::wstring& list : lists()) {
        const auto formats = parse_format_list(list);
        ASSERT_EQ(formats.size(), 4u);
        EXPECT_EQ(formats[0].description, L"Archive: Type 1");
        EXPECT_FALSE(formats[1].readable);
        EXPECT_TRUE(formats[2].readable && formats[2].several_images);
        EXPECT_EQ(open_filter(formats, L"All|*.*"),
                  L"CAL - Archive- Type 1|*.cal|YCbCr - Raw Y, Cb and Cr|*.ycbcr|"
                  L"RADIAL-GRADIENT - Gradient|*.radial-gradient|All|*.*");
        EXPECT_TRUE(can_hold_several(formats, L".yCBcR"));
        for (const wchar_t* other : {L".cal", L".", L"", L"ycbcr", L".gif"})
            EXPECT_FALSE(can_hold_several(formats, other)) << other;
    }
}

TEST(FormatList, HostileTextYieldsNoHostileFilter) {
    const std::wstring head = L"Description\n" + std::wstring(kRule);
    EXPECT_TRUE(parse_format_list(L"").empty());
    EXPECT_TRUE(parse_format_list(L"TIFF rw+ without a head").empty());
    EXPECT_TRUE(parse_format_list(head).empty());
    for (const wchar_t* line :
         {L"A|B rw+ x", L"*.exe r-- x", L"-list r-- x", L"AB rw x", L"AB rw++ x", L"AB", L"* * *"})
        EXPECT_TRUE(parse_format_list(head + line).empty()) << line;
    const std::wstring zero(L"AB r-- a|b\0c:d\t", 15);
    EXPECT_EQ(open_filter(parse_format_list(head + zero), L""), L"AB - a-b c-d|*.ab|");
    const auto long_one = parse_format_list(head + std::wstring(200000, L'A') + L" r--");
    ASSERT_EQ(long_one.size(), 1u);
    EXPECT_EQ(long_one[0].description, L"");
}

TEST(VerboseOutput, TellsTheSizesOfWhatWasWritten) {
    const auto sizes = written_sizes(L"t.tif[0] TIFF 9x9 9x9+0+0 16-bit\r\n"
                                     L"t.tif=>tmp000.jpg[0] TIFF 64x48 64x48+0+0 16-bit\r\n"
                                     L"warning: 5x5\r\n"
                                     L"C:\\a b\\t.tif=>C:\\a b\\tmp1000.jpg JPEG 30x7=>8x8\r\n"
                                     L"t=>tmp001.bmp BMP 1x1\r\nt=>tmp99999999999.jpg A 1x1\n"
                                     L"t=>tmp002.jpg A 1x99999999999 x7 8x\nt=>tmp003.jpg",
                                     L"tmp");
    ASSERT_EQ(sizes.size(), 2u);
    EXPECT_EQ(sizes.at(0).width, 64);
    EXPECT_EQ(sizes.at(0).height, 48);
    EXPECT_EQ(sizes.at(1000).width, 30);
    EXPECT_TRUE(written_sizes(L"=>", L"tmp").empty());
}

} // namespace
} // namespace kelvane
