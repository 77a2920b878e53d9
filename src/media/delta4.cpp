// SPDX-License-Identifier: MIT
#include "media/delta4.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace kez {

namespace {

constexpr int silence = 128;
constexpr unsigned escape = 15;
constexpr int runMark = 255;

/// The 4-bit codes of a stream, high half of each byte first.
class Nibbles {
public:
    explicit Nibbles(std::span<const std::uint8_t> bytes)
        : bytes_(bytes)
    {
    }

    [[nodiscard]] bool ended() const { return position_ / 2 >= bytes_.size(); }

    unsigned next()
    {
        const unsigned byte = bytes_[position_ / 2];
        return position_++ % 2 == 0 ? byte >> 4 : byte & 15;
    }

    /// Two codes as a byte; −1 when the stream ends before the second.
    int nextByte()
    {
        if (position_ + 2 > 2 * bytes_.size()) {
            position_ = 2 * bytes_.size();
            return -1;
        }
        const unsigned high = next();
        return static_cast<int>(high << 4 | next());
    }

private:
    std::span<const std::uint8_t> bytes_;
    std::size_t position_ = 0;
};

} // namespace

void expandDelta4(std::span<const std::uint8_t> stream, std::span<std::uint8_t> out)
{
    std::ranges::fill(out, static_cast<std::uint8_t>(silence));
    if (stream.size() < delta4TableSize || out.empty())
        return;
    std::int8_t table[delta4TableSize];
    std::memcpy(table, stream.data(), sizeof table);

    Nibbles codes(stream.subspan(delta4TableSize));
    int sample = silence;
    std::size_t written = 1;
    while (!codes.ended() && written < out.size()) {
        const unsigned code = codes.next();
        if (code != escape) {
            sample = std::clamp(sample + table[code], 0, 255);
            out[written++] = static_cast<std::uint8_t>(sample);
            continue;
        }
        const int value = codes.nextByte();
        if (value < 0)
            return;
        if (value != runMark) {
            sample = value;
            out[written++] = static_cast<std::uint8_t>(sample);
            continue;
        }
        const int count = codes.nextByte();
        if (count < 0)
            return;
        const std::size_t room = std::min(static_cast<std::size_t>(count), out.size() - written);
        std::ranges::fill(out.subspan(written, room), static_cast<std::uint8_t>(sample));
        written += room;
    }
}

} // namespace kez
