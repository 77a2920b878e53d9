// SPDX-License-Identifier: MIT
#include "media/targa_decoder.h"

#include "media/targa_header.h"
#include "media/targa_palette.h"
#include "media/targa_pixels.h"
#include "media/targa_rows.h"

#include <algorithm>
#include <array>
#include <utility>

namespace kez {

namespace {

// Larger pictures are treated as ones that the memory cannot hold. No other size overflows.
constexpr std::uint64_t largestPicture = 1u << 30;

constexpr std::size_t spareBytes = 4; // behind the pixels, for decoders that store whole words

String allocate(std::uint64_t size, ByteBlock& block)
{
    if (size <= largestPicture)
        block = ByteBlock::unset(static_cast<std::size_t>(size));
    if (!block)
        return String().format(
            "Could not allocate buffer of size %llu", static_cast<unsigned long long>(size));
    return {};
}

String readHeader(TargaSource& source, TargaHeader& header)
{
    if (source.remaining() < TargaHeader::bytes)
        return "File too small for a Targa";
    std::array<std::uint8_t, TargaHeader::bytes> data {};
    if (source.read(data) != data.size())
        return "Could not read Targa header from file";
    header = TargaHeader::parse(data);
    if (!source.skip(header.identificationLength))
        return "Could not seek past Image Identification Field";
    return {};
}

String takeSize(const TargaHeader& header, TargaPicture& picture)
{
    if (header.width == 0)
        return "Targa has width 0";
    picture.width = header.width;
    if (header.height == 0)
        return "Targa has height 0";
    picture.height = header.height;
    return {};
}

String readBlock(TargaSource& source, ByteBlock& block)
{
    const std::uint64_t size = source.remaining();
    if (String fault = allocate(size, block); !fault.empty())
        return fault;
    if (source.read(block.bytes()) != size)
        return String().format(
            "Could not read %llu bytes from file", static_cast<unsigned long long>(size));
    return {};
}

bool isPlain24(const TargaHeader& header)
{
    return header.depth == 24 && !header.runLength();
}

// The picture lies in the file as it will lie in memory.
String readPlain24(TargaSource& source, const TargaHeader& header, ByteBlock& pixels)
{
    if (!source.skip(header.mapBytes()))
        return "Palette ends early";
    const std::uint64_t size = header.pixels() * 3;
    if (source.remaining() < size)
        return targaEndsEarly(size, source.remaining());
    if (String fault = allocate(size + spareBytes, pixels); !fault.empty())
        return fault;
    const std::size_t count = source.read(pixels.bytes().first(pixels.size() - spareBytes));
    return count < size ? targaEndsEarly(size, count) : String();
}

String readConverted(TargaSource& source, const TargaHeader& header, ByteBlock& pixels)
{
    ByteBlock block;
    std::span<const std::uint8_t> rest = source.inMemory();
    if (rest.empty()) {
        if (String fault = readBlock(source, block); !fault.empty())
            return fault;
        rest = block.bytes();
    }
    const std::size_t mapBytes = std::min(header.mapBytes(), rest.size());
    TargaPalette palette;
    if (header.depth <= 8) {
        String fault = makeTargaPalette(header, rest.first(mapBytes), palette);
        if (!fault.empty())
            return fault;
    }
    const std::span<const std::uint8_t> stored = rest.subspan(mapBytes);
    if (stored.size() < leastTargaBytes(header))
        return targaEndsEarly(leastTargaBytes(header), stored.size());
    if (String fault = allocate(header.pixels() * 3 + spareBytes, pixels); !fault.empty())
        return fault;
    return convertTargaPixels(header, palette, stored, pixels.bytes());
}

String arrangeRows(const TargaHeader& header, ByteBlock& pixels)
{
    const std::size_t rowBytes = std::size_t { header.width } * 3;
    const std::span<std::uint8_t> picture = pixels.bytes().first(rowBytes * header.height);
    if (header.rowsRightToLeft())
        mirrorRows(picture, rowBytes);
    if (header.topRowFirst())
        flipRows(picture, rowBytes);
    if (header.interleave() == 0)
        return {};
    ByteBlock arranged;
    if (String fault = allocate(pixels.size(), arranged); !fault.empty())
        return fault;
    deinterleave(picture, arranged.bytes(), rowBytes, header.interleave() == 0x40 ? 2 : 4);
    pixels = std::move(arranged);
    return {};
}

} // namespace

std::size_t TargaBytes::read(std::span<std::uint8_t> into)
{
    const std::size_t count = std::min(into.size(), rest_.size());
    std::copy_n(rest_.begin(), count, into.begin());
    rest_ = rest_.subspan(count);
    return count;
}

bool TargaBytes::skip(std::size_t count)
{
    if (count > rest_.size())
        return false;
    rest_ = rest_.subspan(count);
    return true;
}

String decodeTarga(TargaSource& source, TargaPicture& picture)
{
    TargaHeader header;
    ByteBlock pixels;
    String fault = readHeader(source, header);
    if (fault.empty())
        fault = takeSize(header, picture);
    if (fault.empty())
        fault = checkTargaHeader(header);
    if (fault.empty())
        fault = isPlain24(header) ? readPlain24(source, header, pixels)
                                  : readConverted(source, header, pixels);
    if (fault.empty())
        fault = arrangeRows(header, pixels);
    if (fault.empty())
        picture.pixels = std::move(pixels);
    return fault;
}

} // namespace kez
