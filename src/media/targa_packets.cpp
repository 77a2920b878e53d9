// SPDX-License-Identifier: MIT
#include "media/targa_packets.h"

#include "media/targa_levels.h"

#include <array>
#include <cstring>

namespace kez {

namespace {

constexpr std::size_t pixelBytes = 3;
constexpr std::size_t mostPacketBytes = 128 * pixelBytes;
constexpr std::size_t stepBytes = 16 * pixelBytes; // what is copied at a time

/// Writes each packet when it is known where the next one begins.
class PacketWriter {
public:
    PacketWriter(std::span<const std::uint8_t> row, std::uint8_t* to)
        : row_(row.data())
        , first_(row.data())
        , rowEnd_(row.data() + row.size())
        , to_(to)
    {
    }

    void beginPackets(std::span<const PacketStart> starts)
    {
        for (const PacketStart start : starts)
            beginPacket(row_ + start / 2, start % 2 != 0);
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
        if (static_cast<std::size_t>(rowEnd_ - first_) < bytes + stepBytes)
            std::memcpy(to_, first_, stored);
        else
            for (std::size_t done = 0; done < stored; done += stepBytes)
                std::memcpy(to_ + done, first_ + done, stepBytes);
    }

    const std::uint8_t* row_;
    const std::uint8_t* first_; ///< Of what is not written yet.
    const std::uint8_t* rowEnd_;
    std::uint8_t* to_;
    bool isLiteral_ = false;
};

} // namespace

std::size_t packTargaRow(std::span<const std::uint8_t> row, std::span<std::uint8_t> out)
{
    PacketSearch search { row.data(), row.size() };
    PacketWriter writer(row, out.data());
    std::array<PacketStart, 1024> starts;
    while (search.at < row.size()) {
        const std::size_t count = targaKernels().findPackets(search, starts.data(), starts.size());
        writer.beginPackets(std::span(starts).first(count));
    }
    return static_cast<std::size_t>(writer.finish() - out.data());
}

} // namespace kez
