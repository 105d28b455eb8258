#include "image/dib_section.h"

#include <gtest/gtest.h>

namespace kelvane {
namespace {

TEST(DibSection, RowsArePaddedToFourBytes) {
    EXPECT_EQ(cDIBSection::bytes_per_scan_line(1), 4);
    EXPECT_EQ(cDIBSection::bytes_per_scan_line(2), 8);
    EXPECT_EQ(cDIBSection::bytes_per_scan_line(3), 12);
    EXPECT_EQ(cDIBSection::bytes_per_scan_line(4), 12);
}

} // namespace
} // namespace kelvane
