// SPDX-License-Identifier: MIT
#include "media/targa_pixels.h"

#include "media/targa_levels.h"

#include <array>
#include <cstring>
#include <type_traits>

namespace kez {

namespace {

constexpr std::size_t mostPacketPixels = 128;

// How one stored pixel of each depth becomes three bytes. `reportedRow` is how refusals number the
// rows of that depth: they do not agree, and tools that read the texts rely on each.

struct Indexed {
    static constexpr std::size_t bytes = 1;

    static int reportedRow(int row, int) { return row + 1; }

    [[nodiscard]] Bgr operator()(const std::uint8_t* stored) const
    {
        return palette.colours[*stored];
    }

    const TargaPalette& palette;
};

struct FiveBits {
    static constexpr std::size_t bytes = 2;

    static int reportedRow(int row, int height) { return height - row; }

    Bgr operator()(const std::uint8_t* stored) const { return fromTarga16(stored); }
};

template <std::size_t storedBytes>
struct WholeBytes {
    static constexpr std::size_t bytes = storedBytes;

    static int reportedRow(int row, int) { return row; }

    Bgr operator()(const std::uint8_t* stored) const { return { stored[0], stored[1], stored[2] }; }
};

// Where packets are unpacked to. While more than a packet's worth of bytes is left on both sides,
// whole steps are moved whatever a packet asks for, which is faster than moving the exact length.
struct Target {
    std::uint8_t* at;
    std::uint8_t* end;

    [[nodiscard]] bool isWide(std::size_t storedLeft) const
    {
        return storedLeft >= widest && end - at >= static_cast<std::ptrdiff_t>(widest);
    }

    static constexpr std::size_t step = 48; // a multiple of 3 and of 16
    static constexpr std::size_t widest = mostPacketPixels * 4 + step;
};

template <class Pixel>
void convert(const Pixel& pixel, const std::uint8_t* stored, std::size_t count, std::uint8_t* out)
{
    if constexpr (std::is_same_v<Pixel, WholeBytes<3>>) {
        std::memcpy(out, stored, count * 3);
    } else {
        for (std::size_t i = 0; i < count; ++i) {
            const Bgr colour = pixel(stored + i * Pixel::bytes);
            std::memcpy(out + i * 3, colour.data(), 3);
        }
    }
}

// What a register holds. Patterns stay in registers: what was written as words just now cannot be
// read back as pairs of them without a wait.
typedef std::uint64_t Pair __attribute__((vector_size(16)));

/// Sixteen pixels of one colour: a step.
struct Pattern {
    explicit Pattern(const Bgr& colour)
    {
        const auto pixel = static_cast<std::uint64_t>(colour[0] | colour[1] << 8 | colour[2] << 16);
        const std::uint64_t first = pixel | pixel << 24 | pixel << 48;
        const std::uint64_t second = pixel >> 16 | pixel << 8 | pixel << 32 | pixel << 56;
        const std::uint64_t third = pixel >> 8 | pixel << 16 | pixel << 40;
        start = Pair { first, second };
        middle = Pair { third, first };
        end = Pair { second, third };
    }

    void store(std::uint8_t* out) const
    {
        std::memcpy(out, &start, sizeof start);
        std::memcpy(out + sizeof start, &middle, sizeof middle);
        std::memcpy(out + 2 * sizeof start, &end, sizeof end);
    }

    Pair start;
    Pair middle;
    Pair end;
};

// What is left of a run after its first two steps, three steps at a time: most need no more, and
// to ask less is faster.
void fillFurther(const Pattern& pattern, std::size_t bytes, std::uint8_t* out)
{
    for (std::size_t done = 2 * Target::step; done < bytes; done += 3 * Target::step)
        for (std::size_t step = done; step < done + 3 * Target::step; step += Target::step)
            pattern.store(out + step);
}

// How many bytes were taken. What comes next can be looked at early when that does not depend on
// what is stored, as it would if runs and literals were not told apart by a branch.
template <class Pixel>
std::size_t unpackWide(const Pixel& pixel, const std::uint8_t* stored, std::size_t count,
    bool isRun, std::uint8_t* out)
{
    const std::size_t bytes = count * 3;
    if (isRun) {
        const Pattern pattern(pixel(stored));
        pattern.store(out);
        pattern.store(out + Target::step);
        if (bytes > 2 * Target::step)
            fillFurther(pattern, bytes, out);
        return Pixel::bytes;
    }
    if constexpr (std::is_same_v<Pixel, WholeBytes<3>>)
        for (std::size_t done = 0; done < bytes; done += Target::step)
            std::memcpy(out + done, stored + done, Target::step);
    else
        convert(pixel, stored, count, out);
    return count * Pixel::bytes;
}

template <class Pixel>
void unpackExactly(const Pixel& pixel, const std::uint8_t* stored, std::size_t count, bool isRun,
    std::uint8_t* out)
{
    for (std::size_t i = 0; isRun && i < count; ++i)
        convert(pixel, stored, 1, out + i * 3);
    if (!isRun)
        convert(pixel, stored, count, out);
}

template <class Pixel>
String unpack(const Pixel& pixel, const TargaHeader& header, std::span<const std::uint8_t> stored,
    std::span<std::uint8_t> pixels)
{
    PacketUnpacking at { stored.data(), stored.data() + stored.size(), pixels.data(),
        pixels.data() + pixels.size(), header.width };
    if constexpr (std::is_same_v<Pixel, WholeBytes<3>>)
        targaKernels().unpack(at);
    Target out { at.out, at.outEnd };
    const std::uint8_t* in = at.in;
    const std::uint8_t* const end = at.inEnd;
    unsigned column = at.column;
    for (int row = at.row; row < header.height; ++row, column = 0) {
        while (column < header.width) {
            if (in == end)
                return targaEndsEarly(stored.size() + 1, stored.size());
            const unsigned control = *in++;
            const std::size_t count = (control & 0x7F) + 1;
            column += static_cast<unsigned>(count);
            if (column > header.width)
                return String().format("Decompression: Row %u's width is at least %u instead of %u",
                    static_cast<unsigned>(Pixel::reportedRow(row, header.height)), column,
                    header.width);
            const bool isRun = (control & 0x80) != 0;
            const std::size_t bytes = (isRun ? 1 : count) * Pixel::bytes;
            const auto left = static_cast<std::size_t>(end - in);
            if (left < bytes)
                return targaEndsEarly(stored.size() + bytes - left, stored.size());
            if (out.isWide(left)) {
                in += unpackWide(pixel, in, count, isRun, out.at);
            } else {
                unpackExactly(pixel, in, count, isRun, out.at);
                in += bytes;
            }
            out.at += count * 3;
        }
    }
    return {};
}

template <class Pixel>
String convertAs(const Pixel& pixel, const TargaHeader& header,
    std::span<const std::uint8_t> stored, std::span<std::uint8_t> out)
{
    if (header.runLength())
        return unpack(pixel, header, stored, out);
    convert(pixel, stored.data(), static_cast<std::size_t>(header.pixels()), out.data());
    return {};
}

// Bits run on across rows; the most significant one comes first.
void convertBits(const TargaHeader& header, const TargaPalette& palette,
    std::span<const std::uint8_t> stored, std::uint8_t* out)
{
    const auto count = static_cast<std::size_t>(header.pixels());
    for (std::size_t i = 0; i < count; ++i, out += 3) {
        const unsigned bit = stored[i / 8] >> (7 - i % 8) & 1u;
        std::memcpy(out, palette.colours[bit].data(), 3);
    }
}

} // namespace

std::uint64_t leastTargaBytes(const TargaHeader& header)
{
    if (header.depth == 1)
        return (header.pixels() + 7) / 8;
    const std::uint64_t pixelBytes = (header.depth + 7u) / 8;
    if (!header.runLength())
        return header.pixels() * pixelBytes;
    const std::uint64_t packets = (header.width + mostPacketPixels - 1) / mostPacketPixels;
    return header.height * packets * (1 + pixelBytes);
}

String targaEndsEarly(std::uint64_t needed, std::uint64_t present)
{
    return String().format("Pixel data end early: at least %llu bytes needed, %llu present",
        static_cast<unsigned long long>(needed), static_cast<unsigned long long>(present));
}

String convertTargaPixels(const TargaHeader& header, const TargaPalette& palette,
    std::span<const std::uint8_t> stored, std::span<std::uint8_t> out)
{
    switch (header.depth) {
    case 1:
        convertBits(header, palette, stored, out.data());
        return {};
    case 8:
        return convertAs(Indexed { palette }, header, stored, out);
    case 24:
        return convertAs(WholeBytes<3> {}, header, stored, out);
    case 32:
        return convertAs(WholeBytes<4> {}, header, stored, out);
    default:
        return convertAs(FiveBits {}, header, stored, out);
    }
}

} // namespace kez
