// SPDX-License-Identifier: MIT
#include "platform/exif_orientation.h"

#include <optional>

namespace kez {

namespace {

constexpr std::size_t entryBytes = 12;
constexpr std::uint32_t orientationTag = 0x0112;
constexpr std::uint32_t shortType = 3;

/// Numbers of a block in its byte order; 0 beyond its end.
class Numbers {
public:
    Numbers(std::span<const std::uint8_t> bytes, bool bigEndian)
        : bytes_(bytes)
        , bigEndian_(bigEndian)
    {
    }

    std::uint32_t at(std::size_t offset, std::size_t count) const
    {
        if (offset > bytes_.size() || bytes_.size() - offset < count)
            return 0;
        std::uint32_t number = 0;
        for (std::size_t i = 0; i < count; ++i)
            number = (number << 8) | bytes_[offset + (bigEndian_ ? i : count - 1 - i)];
        return number;
    }

private:
    std::span<const std::uint8_t> bytes_;
    bool bigEndian_;
};

std::optional<bool> isBigEndian(std::span<const std::uint8_t> tiff)
{
    if (tiff.size() < 8 || tiff[0] != tiff[1] || (tiff[0] != 'I' && tiff[0] != 'M'))
        return std::nullopt;
    return tiff[0] == 'M';
}

} // namespace

int exifOrientation(std::span<const std::uint8_t> tiff)
{
    const std::optional<bool> bigEndian = isBigEndian(tiff);
    if (!bigEndian)
        return 1;
    const Numbers numbers(tiff, *bigEndian);
    const std::size_t directory = numbers.at(4, 4);
    const std::uint32_t entries = numbers.at(directory, 2);
    for (std::uint32_t i = 0; i < entries; ++i) {
        const std::size_t entry = directory + 2 + i * entryBytes;
        if (numbers.at(entry, 2) != orientationTag || numbers.at(entry + 2, 2) != shortType)
            continue;
        const std::uint32_t value = numbers.at(entry + 8, 2);
        return value >= 1 && value <= 8 ? static_cast<int>(value) : 1;
    }
    return 1;
}

} // namespace kez
