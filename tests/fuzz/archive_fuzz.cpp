// SPDX-License-Identifier: MIT
#include "fuzz/entries.h"

#include "media/archive_block.h"

#include <cstdlib>
#include <vector>

namespace kez::fuzz {

void feedArchive(std::span<const std::uint8_t> bytes)
{
    std::vector<std::uint8_t> block(bytes.begin(), bytes.end());
    const std::uint8_t* at = block.data();
    for (const ArchiveRecord& record : listRecords(block).records) {
        const std::size_t length = record.bytes.size();
        if (record.bytes.data() < at || record.bytes.data() + length > block.data() + block.size()
            || record.name.size() >= recordNameBytes || 4 + record.name.size() >= length)
            std::abort();
        at = record.bytes.data() + length;
    }
}

} // namespace kez::fuzz
