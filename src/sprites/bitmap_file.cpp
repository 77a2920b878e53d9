// SPDX-License-Identifier: MIT
#include "sprites/bitmap_file.h"

#include "core/little_endian.h"
#include "platform/files.h"

#include <algorithm>
#include <array>
#include <limits>

namespace kez {

namespace {

constexpr std::uint32_t fileHeaderBytes = 14;
constexpr std::uint32_t headerBytes = 40;

// Offsets in the block of the header's words that are not 0.
constexpr std::size_t atSize = 0;
constexpr std::size_t atWidth = 4;
constexpr std::size_t atHeight = 8;
constexpr std::size_t atPlanesAndBits = 12;
constexpr std::size_t atImageBytes = 20;
constexpr std::size_t atPixelsPerMetreAcross = 24;
constexpr std::size_t atPixelsPerMetreDown = 28;

} // namespace

ByteBlock makeBitmap(const std::uint8_t* pixels, int width, int height)
{
    if (pixels == nullptr || width <= 0 || height <= 0)
        return {};
    const std::uint64_t pictureRow = std::uint64_t { 3 } * static_cast<std::uint64_t>(width);
    const std::uint64_t row = (pictureRow + 3) / 4 * 4;
    constexpr std::uint64_t largest = std::numeric_limits<std::int32_t>::max() - 54;
    if (row > largest / static_cast<std::uint64_t>(height))
        return {};
    const auto imageBytes = static_cast<std::uint32_t>(row * static_cast<std::uint64_t>(height));

    ByteBlock block = ByteBlock::zeroed(headerBytes + imageBytes);
    if (!block)
        return block;
    std::uint8_t* const header = block.data();
    storeWord(header + atSize, headerBytes);
    storeWord(header + atWidth, static_cast<std::uint32_t>(width));
    storeWord(header + atHeight, static_cast<std::uint32_t>(height));
    storeWord(header + atPlanesAndBits, 1 | 24 << 16);
    storeWord(header + atImageBytes, imageBytes);
    storeWord(header + atPixelsPerMetreAcross, 3790);
    storeWord(header + atPixelsPerMetreDown, 3780);
    std::uint8_t* to = header + headerBytes;
    for (int y = 0; y < height; ++y, pixels += pictureRow, to += row)
        std::copy_n(pixels, pictureRow, to);
    return block;
}

bool writeBitmapFile(const ByteBlock& block, const char* path)
{
    if (block.size() < headerBytes)
        return false;
    std::array<std::uint8_t, fileHeaderBytes> header = { 'B', 'M' };
    storeWord(&header[2], static_cast<std::uint32_t>(fileHeaderBytes + block.size()));
    storeWord(&header[10], fileHeaderBytes + headerBytes);
    files::Writer file(path);
    return file.write(header) && file.write(block.bytes()) && file.commit();
}

void freeBitmap(ByteBlock& block)
{
    block = {};
}

} // namespace kez
