// SPDX-License-Identifier: MIT
/// The search for packets in groups of pixels, as a template over what a level has to compare bytes
/// with. For the sources of the levels only; what core/vectors_sse2.h says of such sources holds
/// here.
#pragma once

#include "media/targa_kernels.h"

#include <cstring>

namespace kez {

namespace {

// In the masks of a group bit 3 i is for pixel i, so that the number of a bit is also the offset of
// the pixel's bytes. Bit 63 is for none.
constexpr std::size_t pixelBytes = 3;
constexpr std::size_t groupBytes = 63;
constexpr std::uint64_t pixelBits = 0x1249249249249249;

// A group is compared as 64 bytes with those a pixel further on.
constexpr std::size_t bytesRead = 64 + pixelBytes;

// The pixels of a group that differ from their right neighbours.
template <class Level>
std::uint64_t runEnds(const std::uint8_t* at)
{
    const std::uint64_t bytes = Level::equalBytes(at, at + pixelBytes);
    return ~(bytes & bytes >> 1 & bytes >> 2) & pixelBits;
}

// The same for the last of a row, whose last pixel differs from what lies behind it.
template <class Level>
std::uint64_t runEndsAtRowEnd(const std::uint8_t* at, std::size_t left)
{
    std::uint8_t bytes[bytesRead] = {};
    std::memcpy(bytes, at, left);
    const std::uint64_t ends = runEnds<Level>(bytes);
    return left > groupBytes ? ends : ends | std::uint64_t { 1 } << (left - pixelBytes);
}

/// A group of a row: where packets begin and which runs are of one pixel.
struct Group {
    std::uint64_t packets;
    std::uint64_t singles;
};

Group groupOf(std::uint64_t runEnds, PacketSearch& search)
{
    constexpr std::size_t lastPixel = groupBytes - pixelBytes;
    const std::uint64_t runStarts = (runEnds << pixelBytes | search.endsBefore) & pixelBits;
    const std::uint64_t singles = runStarts & runEnds;
    const std::uint64_t continued = singles & (singles << pixelBytes | search.singleBefore);
    search.endsBefore = runEnds >> lastPixel;
    search.singleBefore = singles >> lastPixel;
    return { runStarts & ~continued, singles };
}

// Four at a time, whatever there are: most groups have fewer, and nobody can foretell how many.
PacketStart* append(const Group& group, std::size_t offset, PacketStart* starts)
{
    constexpr std::uint64_t none = std::uint64_t { 1 } << 63;
    std::uint64_t rest = group.packets;
    for (PacketStart* to = starts; rest != 0;)
        for (int i = 0; i < 4; ++i, rest &= rest - 1) {
            const int bit = __builtin_ctzll(rest | none);
            *to++ = static_cast<PacketStart>(
                2 * (offset + static_cast<std::size_t>(bit)) | (group.singles >> bit & 1));
        }
    return starts + __builtin_popcountll(group.packets);
}

// The offset behind all the groups from `offset` on that are of single pixels alone.
template <class Level>
std::size_t skipSingles(const PacketSearch& search, std::size_t offset)
{
    while (
        offset + bytesRead <= search.rowBytes && runEnds<Level>(search.row + offset) == pixelBits)
        offset += groupBytes;
    return offset;
}

template <class Level>
std::size_t findPackets(PacketSearch& search, PacketStart* starts, std::size_t room)
{
    constexpr std::size_t most = (groupBytes / pixelBytes + 3) / 4 * 4;
    PacketSearch local = search;
    PacketStart* to = starts;
    while (local.at < local.rowBytes && to + most <= starts + room) {
        const std::uint8_t* const at = local.row + local.at;
        const std::size_t left = local.rowBytes - local.at;
        const std::uint64_t ends
            = left < bytesRead ? runEndsAtRowEnd<Level>(at, left) : runEnds<Level>(at);
        // In photographs most groups are in the middle of a literal.
        if (ends == pixelBits && (local.endsBefore & local.singleBefore) != 0) {
            local.at = skipSingles<Level>(local, local.at + groupBytes);
            continue;
        }
        Group group = groupOf(ends, local);
        if (left < groupBytes)
            group.packets &= (std::uint64_t { 1 } << left) - 1;
        to = append(group, local.at, to);
        local.at += groupBytes;
    }
    search = local;
    return static_cast<std::size_t>(to - starts);
}

} // namespace

} // namespace kez
