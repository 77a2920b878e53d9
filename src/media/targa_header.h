// SPDX-License-Identifier: MIT
/// The 18 bytes at the start of a Targa file, little-endian:
///
/// | offset | field                                                                              |
/// |--------|------------------------------------------------------------------------------------|
/// | 0      | u8 length of the identification field that follows the header                      |
/// | 1      | u8 colour map type: 1 with a colour map, else 0                                    |
/// | 2      | u8 image type: 1 colour-mapped, 2 true colour, 3 grey; + 8: run-length encoded     |
/// | 3, 5   | u16 colour map's first entry, u16 its length                                       |
/// | 7      | u8 bits of a colour map entry                                                      |
/// | 8, 10  | u16 x and y origin (not used)                                                      |
/// | 12, 14 | u16 width, u16 height                                                              |
/// | 16     | u8 bits of a pixel                                                                 |
/// | 17     | u8 descriptor: bit 4 rows run right to left, bit 5 the first row is the top one,   |
/// |        | bits 6 and 7 rows interleaved (0 none, 0x40 two ways, 0x80 four ways)              |
///
/// The identification field, the colour map and the pixels follow.
#pragma once

#include "core/string.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace kez {

struct TargaHeader {
    static constexpr std::size_t bytes = 18;

    std::uint8_t identificationLength = 0;
    std::uint8_t mapType = 0;
    std::uint8_t imageType = 0;
    std::uint16_t mapOrigin = 0;
    std::uint16_t mapLength = 0;
    std::uint8_t mapEntryBits = 0;
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    std::uint8_t depth = 0;
    std::uint8_t descriptor = 0;

    static TargaHeader parse(std::span<const std::uint8_t, bytes> data);
    void serialise(std::span<std::uint8_t, bytes> out) const;

    [[nodiscard]] bool runLength() const { return (imageType & 8) != 0; }

    [[nodiscard]] bool colourMapped() const { return (imageType & 3) == 1; }

    [[nodiscard]] bool rowsRightToLeft() const { return (descriptor & 0x10) != 0; }

    [[nodiscard]] bool topRowFirst() const { return (descriptor & 0x20) != 0; }

    [[nodiscard]] unsigned interleave() const { return descriptor & 0xC0u; }

    [[nodiscard]] std::size_t mapEntryBytes() const { return (mapEntryBits + 7u) / 8; }

    [[nodiscard]] std::size_t mapBytes() const { return mapLength * mapEntryBytes(); }

    [[nodiscard]] std::uint64_t pixels() const { return std::uint64_t { width } * height; }
};

/// What is wrong with type, depth, colour map flag or interleave; empty when the picture can be
/// decoded as far as the header tells.
[[nodiscard]] String checkTargaHeader(const TargaHeader& header);

} // namespace kez
