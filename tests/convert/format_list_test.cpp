// Parsing of the converter's output.
#include "convert/format_list.h"
#include "convert/verbose_output.h"

#include <gtest/gtest.h>

namespace kelvane {
namespace {

const std::wstring kHead = L"warning\r\n  Format  Mode  Description\r\n--------------------\r\n";

TEST(FormatList, EveryVersionsOutputGivesTheSameTable) {
    for (const wchar_t* rows :
         // Version 7, version 6 with its modules, and an old version 6.
         {L"      CAL* rw-   Archive: Type 1\r\n           Specified in MIL-R-28002\r\n"
          L"      CIP* -w-   Phone\r\n    YCbCr* rw+   Raw Y\r\nRADIAL-GRADIENT* r--   Gradient\r\n"
          L"\r\n* native blob support\r\nr read support\r\n+ support for multiple images\r\n",
          L"      CAL* CALS      rw-   Archive: Type 1\r\n           Specified in MIL-R-28002\r\n"
          L"      CIP* CIP       -w-   Phone\r\n    YCbCr* YCbCr     rw+   Raw Y\r\n"
          L"RADIAL-GRADIENT* GRADIENT  r--   Gradient\r\n",
          L"  *CAL*  rw-   Archive: Type 1\n  CIP  -w-  Phone\n*YCbCr rw+ Raw Y\n"
          L"RADIAL-GRADIENT  r--   Gradient"}) {
        const auto formats = parse_format_list(kHead + rows);
        EXPECT_EQ(open_filter(formats, L"All|*.*"),
                  L"CAL - Archive- Type 1|*.cal|YCbCr - Raw Y|*.ycbcr|"
                  L"RADIAL-GRADIENT - Gradient|*.radial-gradient|All|*.*");
        EXPECT_EQ(formats.size(), 4u) << "the one that is only written is missing";
        EXPECT_TRUE(can_hold_several(formats, L".yCBcR"));
        for (const wchar_t* other : {L".cal", L".", L"", L"ycbcr", L".tif"})
            EXPECT_FALSE(can_hold_several(formats, other)) << other;
    }
}

TEST(FormatList, HostileTextYieldsNoHostileFilter) {
    EXPECT_TRUE(parse_format_list(L"TIFF rw+ without a head").empty());
    for (const wchar_t* line :
         {L"", L"A|B rw+ x", L"-list r-- x", L"AB rw x", L"AB rw++ x", L"AB", L"* * *"})
        EXPECT_TRUE(parse_format_list(kHead + line).empty()) << line;
    const std::wstring zero(L"AB r-- a|b\0c:d\t", 15);
    EXPECT_EQ(open_filter(parse_format_list(kHead + zero), L""), L"AB - a-b c-d|*.ab|");
}

TEST(VerboseOutput, TellsTheSizesOfWhatWasWritten) {
    const auto sizes = written_sizes(L"t.tif[0] TIFF 9x9 9x9+0+0\r\n"
                                     L"t.tif=>tmp000.jpg[0] TIFF 64x48 64x48+0+0 16-bit\r\n"
                                     L"C:\\a b\\t.tif=>C:\\a b\\tmp1000.jpg JPEG 30x7=>8x8\r\n"
                                     L"t=>tmp001.bmp BMP 1x1\r\nt=>tmp99999999999.jpg A 1x1\n"
                                     L"t=>tmp002.jpg A 1x99999999999 x7 8x\nt=>tmp003.jpg",
                                     L"tmp");
    ASSERT_EQ(sizes.size(), 2u);
    EXPECT_EQ(sizes.at(0).height, 48);
    EXPECT_EQ(sizes.at(1000).width, 30);
}

} // namespace
} // namespace kelvane
