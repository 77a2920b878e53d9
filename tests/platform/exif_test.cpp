// SPDX-License-Identifier: MIT
#include "platform/exif_orientation.h"

#include "support/exif_block.h"

#include <gtest/gtest.h>

namespace kez {
namespace {

using test::exifBlock;

TEST(Exif, givesTheOrientationInBothByteOrders)
{
    for (const bool bigEndian : { false, true })
        for (int orientation = 1; orientation <= 8; ++orientation)
            EXPECT_EQ(exifOrientation(exifBlock(orientation, bigEndian)), orientation);
}

TEST(Exif, takesWhatMakesNoSenseForUpright)
{
    EXPECT_EQ(exifOrientation({}), 1);
    EXPECT_EQ(exifOrientation(exifBlock(0)), 1);
    EXPECT_EQ(exifOrientation(exifBlock(9)), 1);
    auto block = exifBlock(6);
    block[1] = 'M';
    EXPECT_EQ(exifOrientation(block), 1);
    block = exifBlock(6);
    block[4] = 0xF0; // the directory far outside
    block[7] = 0xFF;
    EXPECT_EQ(exifOrientation(block), 1);
    block = exifBlock(6);
    block[24] = 2; // a text, not a number
    EXPECT_EQ(exifOrientation(block), 1);
}

TEST(Exif, survivesBeingCutAnywhereAndClaimingManyEntries)
{
    auto block = exifBlock(6);
    for (std::size_t kept = 0; kept < block.size(); ++kept) {
        const std::vector<std::uint8_t> cut(block.begin(), block.begin() + static_cast<long>(kept));
        const int orientation = exifOrientation(cut);
        EXPECT_TRUE(orientation == 1 || (orientation == 6 && kept >= 32)) << kept;
    }
    block[8] = block[9] = 0xFF;
    EXPECT_EQ(exifOrientation(block), 6);
}

} // namespace
} // namespace kez
