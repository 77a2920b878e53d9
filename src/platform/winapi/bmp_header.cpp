// SPDX-License-Identifier: MIT
#include "bmp_header.h"

#include "winbase.h"

#include <algorithm>
#include <limits>

namespace kez::winapi {

namespace {

constexpr std::size_t fileHeaderBytes = 14;
constexpr DWORD firstOs2Header = 12;
constexpr DWORD shortestOs2Header = 16;
constexpr DWORD longestOs2Header = 64;
constexpr DWORD windowsHeaders[] = { 40, 52, 56, 108, 124 };

constexpr std::size_t atPixels = 10;
constexpr std::size_t atHeaderSize = 14;
constexpr std::size_t atSides = 18;
constexpr std::size_t atOs2Planes = 22;
constexpr std::size_t atPlanes = 26;
constexpr std::size_t atCoding = 30;
constexpr std::size_t atColours = 46;
constexpr std::size_t atMasks = 54;

constexpr DWORD codedAsBytes = 1;
constexpr DWORD codedAsNibbles = 2;
constexpr DWORD bitFields = 3;
constexpr DWORD bitFieldsWithAlpha = 6;

// 0 beyond the end.
DWORD numberAt(std::span<const BYTE> bytes, std::size_t offset, std::size_t size)
{
    DWORD number = 0;
    for (std::size_t i = 0; i < size && offset + i < bytes.size(); ++i)
        number |= static_cast<DWORD>(bytes[offset + i]) << (8 * i);
    return number;
}

bool isWindowsHeader(DWORD size)
{
    return std::ranges::count(windowsHeaders, size) != 0;
}

bool isOs2Header(DWORD size)
{
    return size == firstOs2Header
        || (size >= shortestOs2Header && size <= longestOs2Header && !isWindowsHeader(size));
}

// Masks that follow a header that does not hold them itself.
std::size_t trailingMaskBytes(DWORD headerSize, DWORD coding)
{
    if (headerSize != windowsHeaders[0])
        return 0;
    return coding == bitFields ? 12 : coding == bitFieldsWithAlpha ? 16 : 0;
}

} // namespace

DWORD BmpHeader::parse(std::span<const BYTE> file)
{
    const DWORD headerSize = numberAt(file, atHeaderSize, 4);
    if (file.size() < fileHeaderBytes + 4 || file[0] != 'B' || file[1] != 'M')
        return ERROR_FILE_CORRUPT;
    if (!isWindowsHeader(headerSize) && !isOs2Header(headerSize))
        return ERROR_NOT_SUPPORTED;
    if (file.size() - fileHeaderBytes < headerSize)
        return ERROR_HANDLE_EOF;
    // Fields that a short header does not hold count as 0.
    const std::span<const BYTE> header = file.first(fileHeaderBytes + headerSize);
    if (const DWORD error = parseSize(header, headerSize); error != NO_ERROR)
        return error;
    if (const DWORD error = parseCoding(header, headerSize); error != NO_ERROR)
        return error;

    const bool isFirstOs2 = headerSize == firstOs2Header;
    const DWORD code = isFirstOs2 ? 0 : numberAt(header, atCoding, 4);
    const std::size_t colourBytes = isFirstOs2 ? 3 : 4;
    const std::size_t maskBytes = trailingMaskBytes(headerSize, code);
    const std::size_t behind = std::min(header.size() + maskBytes, file.size());
    chooseMasks(file.first(std::max(behind, header.size())));
    const DWORD most = bits <= 8 ? 1u << bits : 0;
    const DWORD told = isFirstOs2 ? 0 : numberAt(header, atColours, 4);
    const DWORD count = told != 0 ? std::min(told, most) : most;
    std::size_t start = numberAt(file, atPixels, 4);
    if (start == 0)
        start = behind + count * colourBytes;
    if (start < behind || start > file.size())
        return ERROR_FILE_CORRUPT;
    readPalette(file.subspan(behind, start - behind), count, colourBytes);
    pixels = file.subspan(start);
    return NO_ERROR;
}

DWORD BmpHeader::parseSize(std::span<const BYTE> file, DWORD headerSize)
{
    const bool isFirstOs2 = headerSize == firstOs2Header;
    const std::size_t sideBytes = isFirstOs2 ? 2 : 4;
    const DWORD across = numberAt(file, atSides, sideBytes);
    const DWORD down = numberAt(file, atSides + sideBytes, sideBytes);
    const std::size_t planes = isFirstOs2 ? atOs2Planes : atPlanes;
    topRowFirst = static_cast<LONG>(down) < 0;
    const DWORD rows = topRowFirst ? 0 - down : down;
    constexpr DWORD most = std::numeric_limits<LONG>::max();
    if (across == 0 || rows == 0 || across > most || rows > most || numberAt(file, planes, 2) != 1)
        return ERROR_FILE_CORRUPT;
    if (rows > mostBmpPixels / across)
        return ERROR_FILE_TOO_LARGE;
    width = static_cast<int>(across);
    height = static_cast<int>(rows);
    bits = static_cast<int>(numberAt(file, planes + 2, 2));
    constexpr int known[] = { 1, 4, 8, 16, 24, 32 };
    return std::ranges::count(known, bits) != 0 ? NO_ERROR : ERROR_NOT_SUPPORTED;
}

DWORD BmpHeader::parseCoding(std::span<const BYTE> file, DWORD headerSize)
{
    const DWORD code = headerSize == firstOs2Header ? 0 : numberAt(file, atCoding, 4);
    const bool hasMasks = bits == 16 || bits == 32;
    if (code == 0)
        coding = BmpCoding::None;
    else if (code == codedAsBytes && bits == 8 && !topRowFirst)
        coding = BmpCoding::ByteRuns;
    else if (code == codedAsNibbles && bits == 4 && !topRowFirst)
        coding = BmpCoding::NibbleRuns;
    else if ((code == bitFields || code == bitFieldsWithAlpha) && hasMasks
        && isWindowsHeader(headerSize))
        coding = BmpCoding::BitFields;
    else
        return ERROR_NOT_SUPPORTED;
    return NO_ERROR;
}

void BmpHeader::chooseMasks(std::span<const BYTE> file)
{
    if (coding == BmpCoding::BitFields)
        for (std::size_t i = 0; i < masks.size(); ++i)
            masks[i] = numberAt(file, atMasks + 4 * i, 4);
    else if (bits == 16)
        masks = { 0x7C00, 0x03E0, 0x001F };
    else
        masks = { 0xFF0000, 0x00FF00, 0x0000FF };
}

void BmpHeader::readPalette(std::span<const BYTE> colours, DWORD count, std::size_t colourBytes)
{
    const std::size_t known = std::min<std::size_t>(count, colours.size() / colourBytes);
    for (std::size_t i = 0; i < known; ++i) {
        const BYTE* const colour = colours.data() + i * colourBytes;
        palette[i] = { colour[2], colour[1], colour[0] };
    }
}

} // namespace kez::winapi
