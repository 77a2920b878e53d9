// SPDX-License-Identifier: MIT
#include "fuzz/entries.h"

#include "media/dif1.h"

#include <vector>

namespace kez::fuzz {

// The first two bytes say how large the block is.
void feedDif1(std::span<const std::uint8_t> bytes)
{
    if (bytes.size() < 2)
        return;
    std::vector<std::uint8_t> block(bytes[0] | static_cast<std::size_t>(bytes[1]) << 8);
    (void)expandDif1(bytes.subspan(2), block);
}

} // namespace kez::fuzz
