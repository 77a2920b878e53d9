// SPDX-License-Identifier: MIT
#include "media/targa_palette.h"

namespace kez {

namespace {

String checkMap(const TargaHeader& header)
{
    const unsigned bits = header.mapEntryBits;
    const bool wholeBytes = bits == 8 || bits == 16 || bits == 24 || bits == 32;
    if (header.mapLength > 256)
        return String().format("Palette has more than 256 colours: %u", header.mapLength);
    if (header.depth == 1) {
        if (!wholeBytes)
            return String().format("Palette entry size has to be 8, 16, 24 or 32: %u", bits);
        if (header.mapLength != 2)
            return String().format("Palette does not have 2 entries, but %u", header.mapLength);
    } else if (!wholeBytes && bits != 15) {
        return String().format("Palette entry size has to be 8, 15, 16, 24 or 32: %u", bits);
    }
    return {};
}

Bgr fromMapEntry(const std::uint8_t* entry, std::size_t bytes)
{
    if (bytes == 1)
        return { entry[0], entry[0], entry[0] };
    if (bytes == 2)
        return fromTarga16(entry);
    return { entry[0], entry[1], entry[2] };
}

void makeGreyRamp(TargaPalette& palette)
{
    for (std::size_t i = 0; i < palette.colours.size(); ++i)
        palette.colours[i].fill(static_cast<std::uint8_t>(i));
}

} // namespace

String makeTargaPalette(
    const TargaHeader& header, std::span<const std::uint8_t> map, TargaPalette& palette)
{
    if (header.mapOrigin != 0)
        return String().format("Palette origin has to be zero: %u", header.mapOrigin);
    if (header.depth == 8 && !header.colourMapped()) {
        makeGreyRamp(palette);
        return {};
    }
    if (header.mapLength == 0) {
        if (header.depth == 8)
            return "Colour-mapped, but without a palette";
        palette.colours[1].fill(255);
        return {};
    }
    if (String fault = checkMap(header); !fault.empty())
        return fault;
    const std::size_t entryBytes = header.mapEntryBytes();
    if (map.size() < header.mapBytes())
        return "Palette ends early";
    for (std::size_t i = 0; i < header.mapLength; ++i)
        palette.colours[i] = fromMapEntry(&map[i * entryBytes], entryBytes);
    return {};
}

} // namespace kez
