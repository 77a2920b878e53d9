// SPDX-License-Identifier: MIT
/// BMP files made field by field, sound or not.
#pragma once

#include <cstdint>
#include <vector>

namespace kez::test {

struct BmpBytes {
    using Bytes = std::vector<std::uint8_t>;

    std::uint32_t headerSize = 40;
    std::int32_t width = 1;
    std::int32_t height = 1;
    std::uint32_t bits = 24;
    std::uint32_t coding = 0;
    std::uint32_t colours = 0;
    std::vector<std::uint32_t> masks {}; ///< Behind the first 40 bytes of the header.
    Bytes palette {};
    Bytes pixels {};
    std::uint32_t gap = 0; ///< Bytes between palette and pixels.
    std::uint32_t planes = 1;
    bool namesOffset = true;

    [[nodiscard]] Bytes file() const
    {
        Bytes header;
        const bool isFirstOs2 = headerSize == 12;
        const int sideBytes = isFirstOs2 ? 2 : 4;
        append(header, headerSize, 4);
        append(header, static_cast<std::uint32_t>(width), sideBytes);
        append(header, static_cast<std::uint32_t>(height), sideBytes);
        append(header, planes, 2);
        append(header, bits, 2);
        for (const std::uint32_t field : { coding, 0u, 3790u, 3780u, colours, 0u })
            if (!isFirstOs2)
                append(header, field, 4);
        if (headerSize < 40)
            header.resize(headerSize);
        for (const std::uint32_t mask : masks)
            append(header, mask, 4);
        if (headerSize > header.size())
            header.resize(headerSize);

        Bytes all { 'B', 'M' };
        const auto start = static_cast<std::uint32_t>(14 + header.size() + palette.size() + gap);
        append(all, start + static_cast<std::uint32_t>(pixels.size()), 4);
        append(all, 0, 4);
        append(all, namesOffset ? start : 0, 4);
        for (const Bytes& part : { header, palette, Bytes(gap, 0xEE), pixels })
            all.insert(all.end(), part.begin(), part.end());
        return all;
    }

private:
    static void append(Bytes& bytes, std::uint32_t value, int size)
    {
        for (int i = 0; i < size; ++i)
            bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
    }
};

} // namespace kez::test
