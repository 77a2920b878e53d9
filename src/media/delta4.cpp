// SPDX-License-Identifier: MIT
#include "media/delta4.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

namespace kez {

namespace {

constexpr int silence = 128;
constexpr unsigned escape = 15;
constexpr int runMark = 255;

class Expansion {
public:
    Expansion(std::span<const std::uint8_t> stream, std::span<std::uint8_t> out)
        : bytes_(stream.subspan(delta4TableSize))
        , out_(out.data() + 1) // the first sample is silence
        , outEnd_(out.data() + out.size())
    {
        std::memcpy(table_.data(), stream.data(), table_.size());
    }

    void run()
    {
        do
            pairs();
        while (code() && code());
    }

private:
    // Two samples at a time, up to the first run, an escape behind an escape or the ends. Whatever
    // the codes are, the pair that follows begins with a byte: an escape takes whole bytes of them.
    void pairs()
    {
        const std::uint8_t* in = bytes_.data() + position_ / 2;
        const std::uint8_t* const inEnd = bytes_.data() + bytes_.size();
        std::uint8_t* out = out_;
        int sample = sample_;
        while (inEnd - in >= 2 && outEnd_ - out >= 2) {
            const unsigned high = in[0] >> 4;
            const unsigned low = in[0] & 15u;
            int first = 0;
            int second = 0;
            if (high != escape && low != escape) {
                first = moved(sample, high);
                second = moved(first, low);
            } else if (high != escape) {
                first = moved(sample, high);
                second = in[1];
                if (second == runMark)
                    break;
                ++in;
            } else {
                first = static_cast<int>(low << 4 | in[1] >> 4);
                if (first == runMark || (in[1] & 15u) == escape)
                    break;
                second = moved(first, in[1] & 15u);
                ++in;
            }
            ++in;
            out[0] = static_cast<std::uint8_t>(first);
            out[1] = static_cast<std::uint8_t>(second);
            out += 2;
            sample = second;
        }
        position_ = 2 * static_cast<std::size_t>(in - bytes_.data());
        out_ = out;
        sample_ = sample;
    }

    // Sounds seldom reach their limits: a foretold branch keeps the way to the next sample short.
    [[nodiscard]] int moved(int sample, unsigned code) const
    {
        sample += table_[code];
        if (static_cast<unsigned>(sample) > 255) [[unlikely]]
            return sample < 0 ? 0 : 255;
        return sample;
    }

    // One code of any kind; false at the end of the stream or of the samples.
    bool code()
    {
        if (position_ / 2 >= bytes_.size() || out_ == outEnd_)
            return false;
        const unsigned code = next();
        if (code == escape)
            return escaped();
        sample_ = moved(sample_, code);
        *out_++ = static_cast<std::uint8_t>(sample_);
        return true;
    }

    bool escaped()
    {
        const int value = nextByte();
        int count = 1;
        if (value == runMark)
            count = nextByte();
        else
            sample_ = value;
        if (value < 0 || count < 0)
            return false;
        const auto room = std::min<std::ptrdiff_t>(count, outEnd_ - out_);
        out_ = std::fill_n(out_, room, static_cast<std::uint8_t>(sample_));
        return true;
    }

    unsigned next()
    {
        const unsigned byte = bytes_[position_ / 2];
        return position_++ % 2 == 0 ? byte >> 4 : byte & 15;
    }

    // Two codes as a byte; −1 when the stream ends before the second.
    int nextByte()
    {
        if (position_ + 2 > 2 * bytes_.size())
            return -1;
        const unsigned high = next();
        return static_cast<int>(high << 4 | next());
    }

    std::array<std::int8_t, delta4TableSize> table_ {};
    std::span<const std::uint8_t> bytes_;
    std::size_t position_ = 0; // in codes, the high half of each byte first
    std::uint8_t* out_;
    std::uint8_t* outEnd_;
    int sample_ = silence;
};

} // namespace

void expandDelta4(std::span<const std::uint8_t> stream, std::span<std::uint8_t> out)
{
    std::ranges::fill(out, static_cast<std::uint8_t>(silence));
    if (stream.size() >= delta4TableSize && !out.empty())
        Expansion(stream, out).run();
}

} // namespace kez
