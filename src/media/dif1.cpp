// SPDX-License-Identifier: MIT
#include "media/dif1.h"

#include <cstring>

namespace kez {

namespace {

constexpr const char* endsEarly = "the compressed data end early";
constexpr const char* pastBlock = "the compressed data hold more than they announce";
constexpr const char* sourceAhead = "the compressed data repeat bytes that do not exist yet";

// Bytes moved at once where there is room, whatever the token asks for: moving too much and then
// advancing by the true length is faster than moving the true length.
constexpr std::size_t step = 32;
constexpr std::ptrdiff_t longRoom = dif1LongestCopy + step;

class Expansion {
public:
    Expansion(std::span<const std::uint8_t> stream, std::span<std::uint8_t> block)
        : in_(stream.data())
        , inEnd_(stream.data() + stream.size())
        , block_(block.data())
        , out_(block.data())
        , outEnd_(block.data() + block.size())
    {
    }

    const char* run()
    {
        while (!ended_) {
            if (position() >= dif1Reach)
                commonTokens();
            if (const char* fault = token())
                return fault;
        }
        return nullptr;
    }

private:
    [[nodiscard]] std::size_t left() const { return static_cast<std::size_t>(inEnd_ - in_); }

    [[nodiscard]] std::size_t room() const { return static_cast<std::size_t>(outEnd_ - out_); }

    [[nodiscard]] std::size_t position() const { return static_cast<std::size_t>(out_ - block_); }

    // Nearly all there is: literals and copies of up to a step take one move, without a branch on
    // what the token is, for that cannot be foretold. Ends in front of the first token that is
    // something else or lies near the ends. Behind the first `dif1Reach` bytes every v is in reach,
    // and a literal may look like any distance without harm.
    void commonTokens()
    {
        const std::uint8_t* in = in_;
        std::uint8_t* out = out_;
        while (inEnd_ - in > static_cast<std::ptrdiff_t>(step) && outEnd_ - out >= longRoom) {
            const std::size_t count = *in;
            const std::size_t distance = dif1Reach - valueAt(in + 1);
            // Two halves, one after the other, repeat a pattern of at least half a step.
            const std::size_t most = distance >= step / 2 ? step : distance;
            if (count - 1 >= most) {
                if (count <= 2 || !copyLong(out, distance, count)) // 0 passes for a large count
                    break;
                in += 3;
                out += count;
                continue;
            }
            moveStep(out, sourceOf(in, out, count <= 2, distance));
            in += 3 - static_cast<std::size_t>(count == 1);
            out += count;
        }
        in_ = in;
        out_ = out;
    }

    // Chosen by a mask; a condition would become a branch.
    static const std::uint8_t* sourceOf(
        const std::uint8_t* token, std::uint8_t* out, bool isLiteral, std::size_t distance)
    {
        const auto literal = reinterpret_cast<std::uintptr_t>(token + 1);
        const auto copied = reinterpret_cast<std::uintptr_t>(out - distance);
        const std::uintptr_t mask = 0 - static_cast<std::uintptr_t>(isLiteral);
        return reinterpret_cast<const std::uint8_t*>(copied ^ ((copied ^ literal) & mask));
    }

    // What is nearer than half a step overlaps, but then less than the distance counts.
    static void moveStep(std::uint8_t* to, const std::uint8_t* from)
    {
        std::memmove(to, from, step / 2);
        std::memmove(to + step / 2, from + step / 2, step / 2);
    }

    // What does not overlap and what repeats one pixel of a sprite; false for the rest.
    static bool copyLong(std::uint8_t* out, std::size_t distance, std::size_t count)
    {
        if (distance >= step) {
            for (std::size_t done = 0; done < count; done += step)
                moveStep(out + done, out + done - distance);
            return true;
        }
        std::uint32_t pixel;
        if (distance != sizeof pixel)
            return false;
        std::memcpy(&pixel, out - distance, sizeof pixel);
        const std::array<std::uint32_t, step / sizeof pixel / 2> pixels { pixel, pixel, pixel,
            pixel };
        for (std::size_t done = 0; done < count; done += sizeof pixels)
            std::memcpy(out + done, pixels.data(), sizeof pixels);
        return true;
    }

    static std::size_t valueAt(const std::uint8_t* bytes)
    {
        return bytes[0] | static_cast<std::size_t>(bytes[1]) << 8;
    }

    // Any token, anywhere.
    const char* token()
    {
        if (left() < 2)
            return endsEarly;
        const std::size_t count = *in_;
        if (count == 0)
            return skip();
        return count <= 2 ? literal(count) : copy(count);
    }

    const char* skip()
    {
        const std::size_t count = in_[1];
        if (count > room())
            return pastBlock;
        ended_ = count == 0;
        // Whole steps may have left bytes behind p.
        std::fill_n(out_, ended_ ? std::min(room(), step) : count, std::uint8_t { 0 });
        in_ += 2;
        out_ += count;
        return nullptr;
    }

    const char* literal(std::size_t count)
    {
        if (left() < 1 + count)
            return endsEarly;
        if (count > room())
            return pastBlock;
        std::memcpy(out_, in_ + 1, count);
        in_ += 1 + count;
        out_ += count;
        return nullptr;
    }

    const char* copy(std::size_t count)
    {
        if (left() < 3)
            return endsEarly;
        if (count > room())
            return pastBlock;
        const std::size_t source = dif1Base(position()) + valueAt(in_ + 1);
        if (source >= position())
            return sourceAhead;
        copyPattern(block_ + source, position() - source, count);
        in_ += 3;
        out_ += count;
        return nullptr;
    }

    // The source may overlap the target, so that its bytes repeat: each round doubles what may be
    // copied.
    void copyPattern(const std::uint8_t* source, std::size_t distance, std::size_t count)
    {
        for (std::size_t done = 0; done < count;) {
            const std::size_t piece = std::min(distance + done, count - done);
            std::memcpy(out_ + done, source, piece);
            done += piece;
        }
    }

    const std::uint8_t* in_;
    const std::uint8_t* inEnd_;
    std::uint8_t* block_;
    std::uint8_t* out_;
    std::uint8_t* outEnd_;
    bool ended_ = false;
};

} // namespace

const char* expandDif1(std::span<const std::uint8_t> stream, std::span<std::uint8_t> block)
{
    return Expansion(stream, block).run();
}

} // namespace kez
