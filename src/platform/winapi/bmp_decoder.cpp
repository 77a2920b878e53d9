// SPDX-License-Identifier: MIT
#include "bmp_decoder.h"

#include "bmp_header.h"
#include "bmp_runs.h"
#include "winbase.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace kez::winapi {

namespace {

/// The colours of the pixels of one row, by how they are stored.
using RowReader = void (*)(const BmpHeader& header, const BYTE* from, BYTE* to);

void put(BYTE*& to, const Colour& colour)
{
    *to++ = colour.blue;
    *to++ = colour.green;
    *to++ = colour.red;
}

template <int bits>
void readIndices(const BmpHeader& header, const BYTE* from, BYTE* to)
{
    constexpr int perByte = 8 / bits;
    constexpr int mask = (1 << bits) - 1;
    for (int x = 0; x < header.width; ++x) {
        const int shift = 8 - bits - x % perByte * bits;
        const int index = from[x / perByte] >> shift & mask;
        put(to, header.palette[static_cast<std::size_t>(index)]);
    }
}

void readColours(const BmpHeader& header, const BYTE* from, BYTE* to)
{
    std::memcpy(to, from, static_cast<std::size_t>(header.width) * 3);
}

/// A colour's part of a pixel; a mask with a gap, or none, gives nothing of that colour.
class Field {
public:
    explicit Field(DWORD mask)
        : channel_(PixelFormat::Channel::of(mask))
    {
    }

    [[nodiscard]] BYTE of(DWORD pixel) const
    {
        return channel_ ? channel_->unpack(pixel) : BYTE { 0 };
    }

private:
    std::optional<PixelFormat::Channel> channel_;
};

template <int bytes>
void readFields(const BmpHeader& header, const BYTE* from, BYTE* to)
{
    const Field red(header.masks[0]);
    const Field green(header.masks[1]);
    const Field blue(header.masks[2]);
    for (int x = 0; x < header.width; ++x, from += bytes) {
        DWORD pixel = 0;
        for (int i = 0; i < bytes; ++i)
            pixel |= static_cast<DWORD>(from[i]) << (8 * i);
        put(to, { red.of(pixel), green.of(pixel), blue.of(pixel) });
    }
}

RowReader readerFor(int bits)
{
    switch (bits) {
    case 1:
        return readIndices<1>;
    case 4:
        return readIndices<4>;
    case 8:
        return readIndices<8>;
    case 16:
        return readFields<2>;
    case 24:
        return readColours;
    default:
        return readFields<4>;
    }
}

bool hasGap(DWORD mask)
{
    return mask != 0 && !PixelFormat::Channel::of(mask);
}

DWORD checkPlainRows(const BmpHeader& header)
{
    if (header.coding == BmpCoding::BitFields && std::ranges::any_of(header.masks, hasGap))
        return ERROR_NOT_SUPPORTED;
    // The padding of the last row is not missed.
    const std::size_t lastRow
        = (static_cast<std::size_t>(header.width) * static_cast<std::size_t>(header.bits) + 7) / 8;
    const std::size_t needed
        = header.pitch() * (static_cast<std::size_t>(header.height) - 1) + lastRow;
    return header.pixels.size() >= needed ? NO_ERROR : ERROR_HANDLE_EOF;
}

void readPlainRows(const BmpHeader& header, Bitmap& bitmap)
{
    const RowReader readRow = readerFor(header.bits);
    for (int y = 0; y < header.height; ++y)
        readRow(header, header.pixels.data() + static_cast<std::size_t>(y) * header.pitch(),
            bitmap.row(header.topRowFirst ? header.height - 1 - y : y));
}

} // namespace

bool Bitmap::allocate(int wide, int high)
{
    width = wide;
    height = high;
    const auto size = static_cast<std::size_t>(pitch()) * static_cast<std::size_t>(high);
    bytes.reset(new (std::nothrow) BYTE[size]());
    return bytes != nullptr;
}

PixelView Bitmap::view() const
{
    static const PixelFormat format = PixelFormat::ofDepth(24);
    if (bytes == nullptr)
        return {};
    return { row(height - 1), -pitch(), width, height, &format };
}

DWORD decodeBmp(std::span<const BYTE> file, Bitmap& bitmap)
{
    BmpHeader header;
    if (const DWORD error = header.parse(file); error != NO_ERROR)
        return error;
    const bool areRuns
        = header.coding == BmpCoding::ByteRuns || header.coding == BmpCoding::NibbleRuns;
    if (const DWORD error = areRuns ? NO_ERROR : checkPlainRows(header); error != NO_ERROR)
        return error;
    if (!bitmap.allocate(header.width, header.height))
        return ERROR_NOT_ENOUGH_MEMORY;
    if (areRuns)
        return BmpRuns(header, bitmap).decode();
    readPlainRows(header, bitmap);
    return NO_ERROR;
}

} // namespace kez::winapi
