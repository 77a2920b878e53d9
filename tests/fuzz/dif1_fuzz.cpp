// SPDX-License-Identifier: MIT
#include "fuzz/entries.h"

#include "media/dif1.h"

#include <vector>

namespace kez::fuzz {

// The first two bytes say how large the block is. With an odd second one as much as copies reach
// back has been skipped before: from there on the tokens are expanded in another way.
void feedDif1(std::span<const std::uint8_t> bytes)
{
    if (bytes.size() < 2)
        return;
    std::size_t size = bytes[0] | static_cast<std::size_t>(bytes[1]) << 8;
    std::vector<std::uint8_t> stream;
    if (bytes[1] % 2 != 0) {
        constexpr std::size_t longestSkip = 255; // of which the reach is a multiple
        for (std::size_t skipped = 0; skipped < dif1Reach; skipped += longestSkip)
            stream.insert(stream.end(), { 0, longestSkip });
        size += dif1Reach;
    }
    stream.insert(stream.end(), bytes.begin() + 2, bytes.end());
    std::vector<std::uint8_t> block(size);
    (void)expandDif1(stream, block);
}

} // namespace kez::fuzz
