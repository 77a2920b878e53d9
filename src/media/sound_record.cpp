// SPDX-License-Identifier: MIT
#include "media/sound_record.h"

namespace kez {

namespace {

constexpr std::size_t headerEnd = 116;

std::uint32_t word(std::span<const std::uint8_t> bytes, std::size_t offset)
{
    return bytes[offset] | static_cast<std::uint32_t>(bytes[offset + 1]) << 8
        | static_cast<std::uint32_t>(bytes[offset + 2]) << 16
        | static_cast<std::uint32_t>(bytes[offset + 3]) << 24;
}

std::uint16_t half(std::span<const std::uint8_t> bytes, std::size_t offset)
{
    return static_cast<std::uint16_t>(bytes[offset] | bytes[offset + 1] << 8);
}

bool holds(std::span<const std::uint8_t> record, std::size_t offset, std::size_t count)
{
    return offset <= record.size() && count <= record.size() - offset;
}

} // namespace

std::optional<SoundHeader> readSoundHeader(std::span<const std::uint8_t> record)
{
    if (record.size() < headerEnd)
        return std::nullopt;
    return SoundHeader {
        .channels = word(record, 88),
        .bitsPerSample = word(record, 92),
        .samplesPerSecond = word(record, 96),
        .sampleLength = word(record, 100),
        .encoding = word(record, 104),
        .sampleOffset = word(record, 108),
        .syncOffset = word(record, 112),
    };
}

std::optional<std::span<const std::uint8_t>> soundBlock(
    std::span<const std::uint8_t> record, const SoundHeader& header)
{
    if (!holds(record, header.sampleOffset, 4))
        return std::nullopt;
    const std::size_t first = std::size_t { header.sampleOffset } + 4;
    const std::uint32_t packed = word(record, header.sampleOffset);
    if (!holds(record, first, packed))
        return std::nullopt;
    return record.subspan(first, packed);
}

std::optional<SyncTrack> soundSyncTrack(
    std::span<const std::uint8_t> record, const SoundHeader& header)
{
    if (header.syncOffset == 0 || !holds(record, header.syncOffset, 8))
        return std::nullopt;
    const std::size_t count = half(record, std::size_t { header.syncOffset } + 4);
    const std::size_t first = std::size_t { header.syncOffset } + 8;
    if (count == 0 || !holds(record, first, count))
        return std::nullopt;
    return SyncTrack { .intervalMs = half(record, std::size_t { header.syncOffset } + 6),
        .values = record.subspan(first, count) };
}

} // namespace kez
