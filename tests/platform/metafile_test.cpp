// Metafiles, which only Windows draws.
#include "platform/four_colours.h"

namespace kelvane::test {
namespace {

TEST(Metafiles, AreDrawnOnWhitePaperAtTheirNaturalSize) {
    expect_quarters("placeable.wmf", 32, 16, kFourColours);
    expect_quarters("drawing.emf", 32, 16, kFourColours);
}

} // namespace
} // namespace kelvane::test
