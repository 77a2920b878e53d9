// SPDX-License-Identifier: MIT
/// The delta code of sounds a code at a time, without any thought of speed.
#pragma once

#include "media/delta4.h"

#include <algorithm>
#include <cstdint>
#include <span>

namespace kez::test {

/// As `expandDelta4`, for streams that hold a table; no code is begun past either end.
inline void plainlyExpandDelta4(std::span<const std::uint8_t> stream, std::span<std::uint8_t> out)
{
    const auto codeAt = [&](std::size_t at) {
        const int byte = stream[delta4TableSize + at / 2];
        return at % 2 == 0 ? byte >> 4 : byte & 15;
    };
    const auto byteAt = [&](std::size_t at) { return codeAt(at) * 16 + codeAt(at + 1); };
    const std::size_t codes = 2 * (stream.size() - delta4TableSize);
    std::ranges::fill(out, std::uint8_t { 128 });
    int sample = 128;
    std::size_t written = 1;
    for (std::size_t at = 0; at < codes && written < out.size();) {
        int times = 1;
        const int code = codeAt(at++);
        if (code < 15) {
            sample = std::clamp(
                sample + static_cast<std::int8_t>(stream[static_cast<std::size_t>(code)]), 0, 255);
        } else if (at + 2 > codes) {
            return;
        } else if (byteAt(at) < 255) {
            sample = byteAt(at);
            at += 2;
        } else if (at + 4 > codes) {
            return;
        } else {
            times = byteAt(at + 2);
            at += 4;
        }
        for (; times > 0 && written < out.size(); --times)
            out[written++] = static_cast<std::uint8_t>(sample);
    }
}

} // namespace kez::test
