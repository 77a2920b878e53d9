// SPDX-License-Identifier: MIT
/// A sound record (".wv5"), checked. Little-endian; offsets from the record's first byte:
///
///       0  u32   length of the record            100  u32  sample length: bytes after decoding
///       4  …     name, zero-terminated           104  u32  encoding: 0 plain, 1 4-bit delta
///      88  u32   channels                        108  u32  offset of the sample block
///      92  u32   bits per sample                 112  u32  offset of the sync block, 0 for none
///      96  u32   samples per second
///
/// Sample block: u32 packed length, then that many encoded bytes. Sync block: u32 not read, u16
/// count (at least 1), u16 interval in milliseconds, then count values.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

namespace kez {

struct SoundHeader {
    std::uint32_t channels = 0;
    std::uint32_t bitsPerSample = 0;
    std::uint32_t samplesPerSecond = 0;
    std::uint32_t sampleLength = 0;
    std::uint32_t encoding = 0;
    std::uint32_t sampleOffset = 0;
    std::uint32_t syncOffset = 0;
};

constexpr std::uint32_t plainEncoding = 0;
constexpr std::uint32_t deltaEncoding = 1;

/// A longer sound (some 50 minutes) is a damaged record.
constexpr std::uint32_t longestSample = 64u << 20;

struct SyncTrack {
    std::uint16_t intervalMs = 0;
    std::span<const std::uint8_t> values; ///< Borrowed from the record.
};

/// The header, or nothing when the record is too short to have one.
std::optional<SoundHeader> readSoundHeader(std::span<const std::uint8_t> record);

/// The encoded bytes of the sample block, or nothing when it does not lie within the record.
std::optional<std::span<const std::uint8_t>> soundBlock(
    std::span<const std::uint8_t> record, const SoundHeader& header);

/// The sync track, or nothing when the record has none or it breaks the rules.
std::optional<SyncTrack> soundSyncTrack(
    std::span<const std::uint8_t> record, const SoundHeader& header);

} // namespace kez
