// SPDX-License-Identifier: MIT
#include "display/present_conversion.h"

#include "display/present_levels.h"

#include <algorithm>
#include <cstring>

namespace kez {

namespace {

// From the top bit of a channel of the canvas to that of the display's.
int shiftRight(const ChannelMask& channel, int canvasTopBit)
{
    return std::max(canvasTopBit - channel.topBit, 0);
}

ChannelShifts shiftsOf(const DisplayLayout& layout)
{
    return { .redRight = shiftRight(layout.red, 23),
        .greenRight = shiftRight(layout.green, 15),
        .blueRight = shiftRight(layout.blue, 7),
        .blueLeft = std::max(layout.blue.topBit - 7, 0),
        .redMask = layout.red.mask,
        .greenMask = layout.green.mask,
        .blueMask = layout.blue.mask };
}

void convertTo16(const PresentKernels& kernels, const CanvasPixel* source, std::uint16_t* target,
    std::size_t count, const DisplayLayout& layout)
{
    switch (layout.format) {
    case DisplayFormat::rgb565:
        return kernels.to565(source, target, count);
    case DisplayFormat::rgb555:
        return kernels.to555(source, target, count);
    case DisplayFormat::rgbOther:
        return kernels.toOther16(source, target, count, shiftsOf(layout));
    }
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
    std::uint16_t converted = 0;
    convertTo16(plainPresentKernels, &pixel, &converted, 1, layout);
    return converted;
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
    int width = std::min({ source.width, target.width, fitting });
    int height = std::min(source.height, target.height);
    const std::ptrdiff_t pitch = bitsPerPixel == 24 ? target.pitchBytes / 3 * 3 : target.pitchBytes;
    // Pictures without gaps between their rows are one long row.
    if (source.pitchBytes == width * 4 && pitch == width * pixelBytes && height > 0) {
        width *= height;
        height = 1;
    }
    const auto count = static_cast<std::size_t>(std::max(width, 0));
    for (int y = 0; y < height; ++y) {
        const auto* from = rowOf<const CanvasPixel>(source, source.pitchBytes, y);
        auto* to = rowOf<std::uint8_t>(target, pitch, y);
        if (bitsPerPixel == 16)
            convertTo16(
                presentKernels(), from, rowOf<std::uint16_t>(target, pitch, y), count, layout);
        else if (bitsPerPixel == 24)
            presentKernels().to24(from, to, count);
        else
            std::memcpy(to, from, count * sizeof(CanvasPixel));
    }
    return true;
}

} // namespace kez
