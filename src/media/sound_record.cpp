// SPDX-License-Identifier: MIT
#include "media/sound_record.h"

#include "core/little_endian.h"

namespace kez {

namespace {

constexpr std::size_t headerEnd = 116;

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
        .channels = loadWord(&record[88]),
        .bitsPerSample = loadWord(&record[92]),
        .samplesPerSecond = loadWord(&record[96]),
        .sampleLength = loadWord(&record[100]),
        .encoding = loadWord(&record[104]),
        .sampleOffset = loadWord(&record[108]),
        .syncOffset = loadWord(&record[112]),
    };
}

std::optional<std::span<const std::uint8_t>> soundBlock(
    std::span<const std::uint8_t> record, const SoundHeader& header)
{
    if (!holds(record, header.sampleOffset, 4))
        return std::nullopt;
    const std::size_t first = std::size_t { header.sampleOffset } + 4;
    const std::uint32_t packed = loadWord(&record[header.sampleOffset]);
    if (!holds(record, first, packed))
        return std::nullopt;
    return record.subspan(first, packed);
}

std::optional<SyncTrack> soundSyncTrack(
    std::span<const std::uint8_t> record, const SoundHeader& header)
{
    if (header.syncOffset == 0 || !holds(record, header.syncOffset, 8))
        return std::nullopt;
    const std::uint8_t* const track = &record[header.syncOffset];
    const std::size_t count = loadWord16(track + 4);
    const std::size_t first = std::size_t { header.syncOffset } + 8;
    if (count == 0 || !holds(record, first, count))
        return std::nullopt;
    return SyncTrack { .intervalMs = static_cast<std::uint16_t>(loadWord16(track + 6)),
        .values = record.subspan(first, count) };
}

} // namespace kez
