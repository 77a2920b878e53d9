// SPDX-License-Identifier: MIT
/// Sound records made byte by byte, right or wrong.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kez::test {

using SoundBytes = std::vector<std::uint8_t>;

struct SoundRecord {
    std::uint32_t channels = 1;
    std::uint32_t bits = 8;
    std::uint32_t samplesPerSecond = 22050;
    std::uint32_t encoding = 0;
    SoundBytes packed; ///< What the sample block holds.
    std::uint32_t sampleLength = 0; ///< 0: as many as `packed` has.
    SoundBytes syncValues {};
    std::uint16_t syncIntervalMs = 100;

    static void put(SoundBytes& bytes, std::size_t at, std::uint32_t value, int count = 4)
    {
        for (int i = 0; i < count; ++i)
            bytes[at + static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(value >> 8 * i);
    }

    [[nodiscard]] SoundBytes bytes() const
    {
        SoundBytes record(120);
        const auto packedLength = static_cast<std::uint32_t>(packed.size());
        put(record, 88, channels);
        put(record, 92, bits);
        put(record, 96, samplesPerSecond);
        put(record, 100, sampleLength != 0 ? sampleLength : packedLength);
        put(record, 104, encoding);
        put(record, 108, 116);
        put(record, 116, packedLength);
        record.insert(record.end(), packed.begin(), packed.end());
        if (!syncValues.empty()) {
            const std::size_t sync = record.size();
            put(record, 112, static_cast<std::uint32_t>(sync));
            record.resize(sync + 8);
            put(record, sync + 4, static_cast<std::uint32_t>(syncValues.size()), 2);
            put(record, sync + 6, syncIntervalMs, 2);
            record.insert(record.end(), syncValues.begin(), syncValues.end());
        }
        put(record, 0, static_cast<std::uint32_t>(record.size()));
        return record;
    }

    [[nodiscard]] std::string text() const
    {
        const SoundBytes all = bytes();
        return { all.begin(), all.end() };
    }
};

} // namespace kez::test
