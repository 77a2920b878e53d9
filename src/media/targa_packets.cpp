// SPDX-License-Identifier: MIT
#include "media/targa_packets.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace kez {

namespace {

constexpr std::size_t pixelBytes = 3;
constexpr std::size_t mostPacketBytes = 128 * pixelBytes;

// Rows are looked at in groups of pixels. In their masks bit 3 i is for pixel i, so that the number
// of a bit is also the offset of the pixel's bytes.
constexpr std::size_t groupPixels = 16;
constexpr std::size_t groupBytes = groupPixels * pixelBytes;
constexpr std::uint64_t pixelBits = 0x249249249249;

#ifdef __SSE2__

std::uint64_t equalBytes(const std::uint8_t* at)
{
    const auto load = [](const std::uint8_t* from) {
        return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
    };
    return static_cast<std::uint64_t>(
        static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(load(at), load(at + pixelBytes)))));
}

// The pixels of a group that differ from their right neighbours. Reads the pixel behind it too.
inline std::uint64_t runEnds(const std::uint8_t* at)
{
    const std::uint64_t bytes
        = equalBytes(at) | equalBytes(at + 16) << 16 | equalBytes(at + 32) << 32;
    return ~(bytes & bytes >> 1 & bytes >> 2) & pixelBits;
}

#else

inline std::uint64_t runEnds(const std::uint8_t* at)
{
    std::uint64_t ends = 0;
    for (std::size_t i = 0; i < groupBytes; i += pixelBytes)
        if (std::memcmp(at + i, at + i + pixelBytes, pixelBytes) != 0)
            ends |= std::uint64_t { 1 } << i;
    return ends;
}

#endif

/// A group of a row: where packets begin and which runs are of one pixel.
struct Group {
    std::uint64_t packets;
    std::uint64_t singles;
};

/// Finds the packets of a row as they were if there was no limit to their length: one begins where
/// a run does, unless that run and the one before are of one pixel.
class PacketFinder {
public:
    // `runEnds` of the next group.
    Group next(std::uint64_t runEnds)
    {
        // In photographs most groups are in the middle of a literal.
        if (runEnds == pixelBits && (endsBefore_ & singlesBefore_) != 0)
            return { 0, pixelBits };
        const std::uint64_t runStarts = (runEnds << pixelBytes | endsBefore_) & pixelBits;
        const std::uint64_t singles = runStarts & runEnds;
        const std::uint64_t continued = singles & (singles << pixelBytes | singlesBefore_);
        endsBefore_ = runEnds >> lastPixel;
        singlesBefore_ = singles >> lastPixel;
        return { runStarts & ~continued, singles };
    }

private:
    static constexpr std::size_t lastPixel = groupBytes - pixelBytes;

    std::uint64_t endsBefore_ = 1;
    std::uint64_t singlesBefore_ = 0;
};

// Some groups that have a pixel behind them. In a loop of its own, which has no branches.
void findPackets(PacketFinder& finder, const std::uint8_t* at, std::span<Group> groups)
{
    PacketFinder local = finder;
    for (Group& group : groups) {
        group = local.next(runEnds(at));
        at += groupBytes;
    }
    finder = local;
}

// The group with the row's last pixel.
Group findLastPackets(PacketFinder& finder, std::span<const std::uint8_t> rest)
{
    std::uint8_t pixels[groupBytes + pixelBytes] = {};
    std::memcpy(pixels, rest.data(), rest.size());
    const std::uint64_t rowEnd = std::uint64_t { 1 } << rest.size();
    const Group group = finder.next(runEnds(pixels) | rowEnd >> pixelBytes);
    return { group.packets & (rowEnd - 1), group.singles };
}

/// Writes each packet when it is known where the next one begins.
class PacketWriter {
public:
    PacketWriter(std::span<const std::uint8_t> row, std::uint8_t* to)
        : first_(row.data())
        , rowEnd_(row.data() + row.size())
        , to_(to)
    {
    }

    // Those that begin in groups beside each other.
    void beginPackets(const std::uint8_t* at, std::span<const Group> groups)
    {
        for (const Group& group : groups) {
            for (std::uint64_t rest = group.packets; rest != 0; rest &= rest - 1) {
                const int offset = std::countr_zero(rest);
                beginPacket(at + offset, (group.singles >> offset & 1) != 0);
            }
            at += groupBytes;
        }
    }

    std::uint8_t* finish()
    {
        beginPacket(rowEnd_, false);
        return to_;
    }

private:
    void beginPacket(const std::uint8_t* at, bool isLiteral)
    {
        if (at - first_ > static_cast<std::ptrdiff_t>(mostPacketBytes))
            at = splitPacket(at, isLiteral);
        if (at != first_)
            write(static_cast<std::size_t>(at - first_));
        isLiteral_ = isLiteral;
    }

    // Leaves the last packet to be written.
    const std::uint8_t* splitPacket(const std::uint8_t* next, bool nextIsLiteral)
    {
        while (next - first_ > static_cast<std::ptrdiff_t>(mostPacketBytes))
            write(mostPacketBytes);
        if (isLiteral_ || next - first_ > static_cast<std::ptrdiff_t>(pixelBytes))
            return next;
        // The last pixel of a long run is one by itself and joins others that follow.
        isLiteral_ = true;
        return nextIsLiteral ? first_ : next;
    }

    void write(std::size_t bytes)
    {
        // Without branches, for nobody can foretell which kind it is.
        const std::size_t literal = isLiteral_ ? ~std::size_t { 0 } : 0;
        const std::size_t stored = pixelBytes + ((bytes - pixelBytes) & literal);
        const std::size_t count = bytes * 171 / 512; // by three, where there are fewer than 1,536
        *to_++ = static_cast<std::uint8_t>((count - 1) | (0x80 & ~literal));
        copy(stored, bytes);
        to_ += stored;
        first_ += bytes;
    }

    // In steps of a known size as long as that much of the row is left. There is then as much room,
    // too.
    void copy(std::size_t stored, std::size_t bytes)
    {
        if (static_cast<std::size_t>(rowEnd_ - first_) < bytes + groupBytes)
            std::memcpy(to_, first_, stored);
        else
            for (std::size_t done = 0; done < stored; done += groupBytes)
                std::memcpy(to_ + done, first_ + done, groupBytes);
    }

    const std::uint8_t* first_; ///< Of what is not written yet.
    const std::uint8_t* rowEnd_;
    std::uint8_t* to_;
    bool isLiteral_ = false;
};

} // namespace

std::size_t packTargaRow(std::span<const std::uint8_t> row, std::span<std::uint8_t> out)
{
    PacketFinder finder;
    PacketWriter writer(row, out.data());
    std::array<Group, 64> groups;
    for (std::span rest = row; !rest.empty();) {
        const std::size_t count = std::min(groups.size(), (rest.size() - 1) / groupBytes);
        if (count != 0)
            findPackets(finder, rest.data(), std::span(groups).first(count));
        else
            groups[0] = findLastPackets(finder, rest);
        const std::size_t whole = std::max<std::size_t>(count, 1);
        writer.beginPackets(rest.data(), std::span(groups).first(whole));
        rest = rest.subspan(std::min(whole * groupBytes, rest.size()));
    }
    return static_cast<std::size_t>(writer.finish() - out.data());
}

} // namespace kez
