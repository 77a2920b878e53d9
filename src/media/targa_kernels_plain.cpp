// SPDX-License-Identifier: MIT
#include "media/targa_kernels.h"

#include <cstring>

namespace kez {

namespace {

constexpr std::size_t pixelBytes = 3;

bool endsRun(const PacketSearch& search)
{
    const std::size_t next = search.at + pixelBytes;
    return next == search.rowBytes
        || std::memcmp(search.row + search.at, search.row + next, pixelBytes) != 0;
}

std::size_t findPackets(PacketSearch& search, PacketStart* starts, std::size_t room)
{
    std::size_t count = 0;
    for (; search.at != search.rowBytes && count != room; search.at += pixelBytes) {
        const bool ends = endsRun(search);
        const bool startsRun = search.endsBefore != 0;
        const bool isSingle = startsRun && ends;
        if (startsRun && !(isSingle && search.singleBefore != 0))
            starts[count++] = static_cast<PacketStart>(2 * search.at + (isSingle ? 1 : 0));
        search.endsBefore = ends;
        search.singleBefore = isSingle;
    }
    return count;
}

// What goes on from here is the rule.
void unpack(PacketUnpacking&) { }

} // namespace

const TargaKernels plainTargaKernels = { findPackets, unpack };

} // namespace kez
