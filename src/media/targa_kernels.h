// SPDX-License-Identifier: MIT
/// The innermost loops for run-length encoded rows of three bytes a pixel, as each vector level has
/// them. All give the same bytes. Without inline functions, since sources compiled for one level
/// include this.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kez {

/// Where a packet begins: twice the offset of its first byte in the row, and one more for a
/// literal. Packets are as they were if there was no limit to their length: one begins where a run
/// does, unless that run and the one before are of one pixel.
typedef std::uint32_t PacketStart;

/// How far the search in a row has come.
struct PacketSearch {
    const std::uint8_t* row;
    std::size_t rowBytes;
    std::size_t at = 0; ///< The offset of the next pixel.
    std::uint64_t endsBefore = 1; ///< 1 when the pixel before that one ended its run.
    std::uint64_t singleBefore = 0; ///< 1 when it was a run by itself.
};

/// How far the unpacking of a picture has come: in front of a packet.
struct PacketUnpacking {
    const std::uint8_t* in;
    const std::uint8_t* inEnd;
    std::uint8_t* out;
    std::uint8_t* outEnd;
    unsigned width; ///< Of the rows, in pixels.
    unsigned column = 0;
    int row = 0;
};

struct TargaKernels {
    /// Goes on until the row ends or there is not much room left. Returns how many packets begin
    /// in between; what lies behind them in `starts` means nothing.
    std::size_t (*findPackets)(PacketSearch& search, PacketStart* starts, std::size_t room);
    /// Goes on as long as that is quick, and stops in front of a packet that does not fit its row.
    void (*unpack)(PacketUnpacking& unpacking);
};

extern const TargaKernels plainTargaKernels;
extern const TargaKernels sse2TargaKernels;
extern const TargaKernels avx2TargaKernels;

} // namespace kez
