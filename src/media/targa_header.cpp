// SPDX-License-Identifier: MIT
#include "media/targa_header.h"

namespace kez {

namespace {

std::uint16_t word(std::span<const std::uint8_t> data, std::size_t offset)
{
    return static_cast<std::uint16_t>(data[offset] | data[offset + 1] << 8);
}

void putWord(std::span<std::uint8_t> out, std::size_t offset, std::uint16_t value)
{
    out[offset] = static_cast<std::uint8_t>(value);
    out[offset + 1] = static_cast<std::uint8_t>(value >> 8);
}

bool isKnownDepth(unsigned depth)
{
    return depth == 1 || depth == 8 || depth == 15 || depth == 16 || depth == 24 || depth == 32;
}

String checkDepthSuitsType(unsigned depth, unsigned type)
{
    if (depth == 1 && type != 1 && type != 3)
        return String().format("1-bit Targas have to be type 1 or 3; this is type %u", type);
    if (depth == 8 && type % 2 == 0)
        return String().format(
            "8-bit Targas have to be type 1, 3, 9, or 11; this is type %u", type);
    if (depth > 8 && type % 2 != 0)
        return String().format(
            "15-bit, 16-bit, 24-bit, and 32-bit Targas have to be type 2 or 10; this is type %u",
            type);
    return {};
}

} // namespace

TargaHeader TargaHeader::parse(std::span<const std::uint8_t, bytes> data)
{
    return {
        .identificationLength = data[0],
        .mapType = data[1],
        .imageType = data[2],
        .mapOrigin = word(data, 3),
        .mapLength = word(data, 5),
        .mapEntryBits = data[7],
        .width = word(data, 12),
        .height = word(data, 14),
        .depth = data[16],
        .descriptor = data[17],
    };
}

void TargaHeader::serialise(std::span<std::uint8_t, bytes> out) const
{
    out[0] = identificationLength;
    out[1] = mapType;
    out[2] = imageType;
    putWord(out, 3, mapOrigin);
    putWord(out, 5, mapLength);
    out[7] = mapEntryBits;
    putWord(out, 8, 0);
    putWord(out, 10, 0);
    putWord(out, 12, width);
    putWord(out, 14, height);
    out[16] = depth;
    out[17] = descriptor;
}

String checkTargaHeader(const TargaHeader& header)
{
    const unsigned type = header.imageType;
    if ((type & 7) == 0 || (type & 0xF4) != 0)
        return String().format("Not a type 1, 2, 3, 9, 10, or 11 Targa, but type %u", type);
    if (!isKnownDepth(header.depth))
        return String().format("Not a 1, 8, 15, 16, 24, or 32-bit Targa, but %u-bit", header.depth);
    if (String fault = checkDepthSuitsType(header.depth, type); !fault.empty())
        return fault;
    if (header.mapLength == 0 ? header.mapType != 0 : header.mapType != 1)
        return String().format("Palette length (%u) contradicts Palette Included flag (%u)",
            header.mapLength, header.mapType);
    if (header.interleave() == 0xC0)
        return String().format("Illegal interleave code: 0x%02x", header.interleave());
    return {};
}

} // namespace kez
