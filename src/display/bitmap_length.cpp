// SPDX-License-Identifier: MIT
#include "display/bitmap_length.h"

#include "platform/files.h"

#include <windows.h>

#include <array>
#include <cstdint>
#include <span>

namespace kez {

namespace {

constexpr std::size_t fileHeaderBytes = 14;
constexpr std::uint32_t firstHeaderBytes = 12; // the one with sides of two bytes
constexpr std::uint32_t codedAsBytes = 1;
constexpr std::uint32_t codedAsNibbles = 2;

/// The first bytes of a file; 0 beyond its end.
class Head {
public:
    explicit Head(files::Reader& file) { file.read(bytes_); }

    [[nodiscard]] bool isBitmap() const { return bytes_[0] == 'B' && bytes_[1] == 'M'; }

    [[nodiscard]] std::uint32_t number(std::size_t offset, std::size_t size = 4) const
    {
        std::uint32_t number = 0;
        for (std::size_t i = 0; i < size; ++i)
            number |= static_cast<std::uint32_t>(bytes_[offset + i]) << (8 * i);
        return number;
    }

private:
    std::array<std::uint8_t, 54> bytes_ {};
};

struct Rows {
    std::uint64_t count;
    std::uint64_t bytes; ///< Of one; between them each is filled up to a multiple of four.
};

Rows rowsOf(std::uint32_t width, std::uint32_t height, std::uint32_t bits)
{
    const bool topRowFirst = static_cast<std::int32_t>(height) < 0;
    const std::uint64_t widthBits = static_cast<std::uint64_t>(width & 0x7FFFFFFF) * bits;
    return { topRowFirst ? 0 - height : height, (widthBits + 7) / 8 };
}

// Rows that are coded as runs are as long as the header says, or it does not know.
Rows rowsOf(const Head& head)
{
    if (head.number(14) == firstHeaderBytes)
        return rowsOf(head.number(18, 2), head.number(20, 2), head.number(24, 2));
    const std::uint32_t coding = head.number(30);
    if (coding == codedAsBytes || coding == codedAsNibbles)
        return { 1, head.number(34) };
    return rowsOf(head.number(18), head.number(22), head.number(28, 2));
}

// The last row need not be filled up.
bool holds(std::uint64_t bytes, const Rows& rows)
{
    if (rows.count == 0 || rows.bytes == 0)
        return true;
    const std::uint64_t pitch = (rows.bytes + 3) / 4 * 4;
    return rows.bytes <= bytes && rows.count - 1 <= (bytes - rows.bytes) / pitch;
}

} // namespace

bool bitmapFileIsWhole(const char* path)
{
    files::Reader file(path);
    if (!file)
        return false;
    const Head head(file);
    if (!head.isBitmap())
        return true;
    const std::uint64_t behindHeader = std::uint64_t { head.number(14) } + fileHeaderBytes;
    const std::uint64_t start = head.number(10) != 0 ? head.number(10) : behindHeader;
    const bool whole = start <= file.size() && holds(file.size() - start, rowsOf(head));
    if (!whole)
        SetLastError(ERROR_HANDLE_EOF);
    return whole;
}

} // namespace kez
