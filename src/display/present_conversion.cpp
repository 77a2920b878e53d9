// SPDX-License-Identifier: MIT
#include "display/present_conversion.h"

#include <algorithm>
#include <cstring>

namespace kez {

namespace {

std::uint32_t to565(CanvasPixel p)
{
    return (p >> 8 & 0xF800) | (p >> 5 & 0x07E0) | (p >> 3 & 0x001F);
}

std::uint32_t to555(CanvasPixel p)
{
    return (p >> 9 & 0x7C00) | (p >> 6 & 0x03E0) | (p >> 3 & 0x001F);
}

/// One channel on its way into place: shifted right or left (one of the two is 0), then masked.
struct ChannelShift {
    ChannelShift(const ChannelMask& channel, int canvasTopBit)
        : right(static_cast<unsigned>(std::max(canvasTopBit - channel.topBit, 0)))
        , left(static_cast<unsigned>(std::max(channel.topBit - canvasTopBit, 0)))
        , mask(channel.mask)
    {
    }

    [[nodiscard]] std::uint32_t operator()(CanvasPixel p) const
    {
        return p >> right << left & mask;
    }

    unsigned right;
    unsigned left;
    std::uint32_t mask;
};

struct LayoutShifts {
    explicit LayoutShifts(const DisplayLayout& layout)
        : red(layout.red, 23)
        , green(layout.green, 15)
        , blue(layout.blue, 7)
    {
    }

    [[nodiscard]] std::uint32_t operator()(CanvasPixel p) const
    {
        return red(p) | green(p) | blue(p);
    }

    ChannelShift red, green, blue;
};

template <typename Rule>
void convertRow(const CanvasPixel* source, std::uint16_t* target, int count, Rule rule)
{
    for (int i = 0; i < count; ++i)
        target[i] = static_cast<std::uint16_t>(rule(source[i]));
}

// The surface's memory as rows of another pixel type; the caller has checked the alignment.
template <typename Pixel>
Pixel* rowOf(const PixelRows& rows, std::ptrdiff_t pitchBytes, int y)
{
    return static_cast<Pixel*>(static_cast<void*>(rows.bytes + y * pitchBytes));
}

bool isAligned(const PixelRows& rows, std::ptrdiff_t pixelBytes)
{
    return rows.bytes != nullptr && rows.pitchBytes % pixelBytes == 0
        && reinterpret_cast<std::uintptr_t>(rows.bytes) % static_cast<unsigned>(pixelBytes) == 0;
}

} // namespace

std::uint16_t displayPixel(CanvasPixel pixel, const DisplayLayout& layout)
{
    switch (layout.format) {
    case DisplayFormat::rgb565:
        return static_cast<std::uint16_t>(to565(pixel));
    case DisplayFormat::rgb555:
        return static_cast<std::uint16_t>(to555(pixel));
    case DisplayFormat::rgbOther:
        break;
    }
    return static_cast<std::uint16_t>(LayoutShifts(layout)(pixel));
}

void convertTo16(
    const CanvasPixel* source, std::uint16_t* target, int count, const DisplayLayout& layout)
{
    switch (layout.format) {
    case DisplayFormat::rgb565:
        convertRow(source, target, count, [](CanvasPixel p) { return to565(p); });
        break;
    case DisplayFormat::rgb555:
        convertRow(source, target, count, [](CanvasPixel p) { return to555(p); });
        break;
    case DisplayFormat::rgbOther:
        convertRow(source, target, count, LayoutShifts(layout));
        break;
    }
}

void convertTo24(const CanvasPixel* source, std::uint8_t* target, int count)
{
    for (int i = 0; i < count; ++i, target += 3) {
        target[0] = static_cast<std::uint8_t>(source[i]);
        target[1] = static_cast<std::uint8_t>(source[i] >> 8);
        target[2] = static_cast<std::uint8_t>(source[i] >> 16);
    }
}

bool convertPicture(
    const PixelRows& source, const PixelRows& target, int bitsPerPixel, const DisplayLayout& layout)
{
    const bool known = bitsPerPixel == 16 || bitsPerPixel == 24 || bitsPerPixel == 32;
    const std::ptrdiff_t pixelBytes = bitsPerPixel / 8;
    if (!known || !isAligned(source, sizeof(CanvasPixel)) || target.bytes == nullptr
        || (bitsPerPixel == 16 && !isAligned(target, pixelBytes)))
        return false;

    const int fitting
        = static_cast<int>(std::max<std::ptrdiff_t>(target.pitchBytes, 0) / pixelBytes);
    const int width = std::min({ source.width, target.width, fitting });
    const int height = std::min(source.height, target.height);
    const std::ptrdiff_t pitch = bitsPerPixel == 24 ? target.pitchBytes / 3 * 3 : target.pitchBytes;
    for (int y = 0; y < height; ++y) {
        const auto* from = rowOf<const CanvasPixel>(source, source.pitchBytes, y);
        auto* to = rowOf<std::uint8_t>(target, pitch, y);
        if (bitsPerPixel == 16)
            convertTo16(from, rowOf<std::uint16_t>(target, pitch, y), width, layout);
        else if (bitsPerPixel == 24)
            convertTo24(from, to, width);
        else
            std::memcpy(to, from, static_cast<std::size_t>(width) * sizeof(CanvasPixel));
    }
    return true;
}

} // namespace kez
