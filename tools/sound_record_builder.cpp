// SPDX-License-Identifier: MIT
#include "sound_record_builder.h"

#include <algorithm>
#include <string_view>

namespace kez::tools {

namespace {

class RecordBytes {
public:
    void word(std::size_t value) { number(value, 4); }

    void half(std::size_t value) { number(value, 2); }

    void text(std::string_view text, std::size_t width)
    {
        const std::size_t end = bytes.size() + width;
        bytes.insert(bytes.end(), text.begin(), text.end());
        bytes.resize(end);
    }

    void append(std::span<const std::uint8_t> more)
    {
        bytes.insert(bytes.end(), more.begin(), more.end());
    }

    std::vector<std::uint8_t> bytes;

private:
    void number(std::size_t value, std::size_t width)
    {
        const std::size_t end = bytes.size();
        bytes.resize(end + width);
        for (std::size_t i = 0; i < width; ++i)
            bytes[end + i] = static_cast<std::uint8_t>(value >> 8 * i);
    }
};

} // namespace

std::vector<std::uint8_t> buildSoundRecord(const SoundParts& parts)
{
    constexpr std::size_t nameWidth = 40;
    constexpr std::size_t sampleOffset = 116;
    const std::size_t sampleEnd = sampleOffset + 4 + parts.encoded.size();
    const std::size_t syncOffset = (sampleEnd + 3) / 4 * 4;
    const bool hasSync = !parts.syncValues.empty();

    RecordBytes record;
    record.word(hasSync ? syncOffset + 8 + parts.syncValues.size() : sampleEnd);
    record.text(parts.name, nameWidth);
    record.text("Sound", nameWidth);
    record.word(0);
    record.word(1); // Channels.
    record.word(8); // Bits per sample.
    record.word(parts.rate);
    record.word(parts.sampleLength);
    record.word(parts.encoding);
    record.word(sampleOffset);
    record.word(hasSync ? syncOffset : 0);
    record.word(parts.encoded.size());
    record.append(parts.encoded);
    if (hasSync) {
        record.bytes.resize(syncOffset);
        record.word(0);
        record.half(parts.syncValues.size());
        record.half(parts.syncIntervalMs);
        record.append(parts.syncValues);
    }
    return std::move(record.bytes);
}

} // namespace kez::tools
