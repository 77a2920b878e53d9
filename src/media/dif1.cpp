// SPDX-License-Identifier: MIT
#include "media/dif1.h"

#include <cstring>

namespace kez {

namespace {

constexpr const char* endsEarly = "the compressed data end early";
constexpr const char* pastBlock = "the compressed data hold more than they announce";
constexpr const char* sourceAhead = "the compressed data repeat bytes that do not exist yet";

// Bytes moved at once while the margins allow it, whatever the token asks for: moving too much and
// then advancing by the true length is faster than moving the true length.
constexpr std::size_t step = 32;

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
        for (;;) {
            while (hasMargins() && *in_ != 0) {
                if (const char* fault = wideToken())
                    return fault;
            }
            if (const char* fault = exactToken())
                return fault;
            if (ended_)
                return nullptr;
        }
    }

private:
    [[nodiscard]] std::size_t left() const { return static_cast<std::size_t>(inEnd_ - in_); }

    [[nodiscard]] std::size_t room() const { return static_cast<std::size_t>(outEnd_ - out_); }

    [[nodiscard]] std::size_t position() const { return static_cast<std::size_t>(out_ - block_); }

    [[nodiscard]] bool hasMargins() const
    {
        return left() > step && room() >= dif1LongestCopy + step;
    }

    // Where the copy token at `token` takes its bytes from, as a position in the output.
    [[nodiscard]] std::size_t copySource(const std::uint8_t* token) const
    {
        const std::size_t v = token[1] | static_cast<std::size_t>(token[2]) << 8;
        return dif1Base(position()) + v;
    }

    // A literal or a copy with `step` readable bytes after the control byte and room for the
    // longest copy and a step. Literals and short copies take the same path: one move.
    const char* wideToken()
    {
        const std::size_t count = *in_;
        const bool literal = count <= 2;
        const std::size_t copied = copySource(in_);
        if (!literal && copied >= position())
            return sourceAhead;
        const std::uint8_t* source = literal ? in_ + 1 : block_ + copied;
        if (literal || (position() - copied >= step && count <= step))
            std::memcpy(out_, source, step);
        else
            copyWide(source, count);
        in_ += literal ? 1 + count : 3;
        out_ += count;
        return nullptr;
    }

    void copyWide(const std::uint8_t* source, std::size_t count)
    {
        const auto distance = static_cast<std::size_t>(out_ - source);
        if (distance >= step) {
            for (std::size_t done = 0; done < count; done += step)
                std::memcpy(out_ + done, source + done, step);
        } else if (distance == 1) {
            std::memset(out_, *source, count);
        } else {
            copyPattern(source, distance, count);
        }
    }

    // The source overlaps the target, so its bytes repeat: each round doubles what may be copied.
    void copyPattern(const std::uint8_t* source, std::size_t distance, std::size_t count)
    {
        std::size_t done = 0;
        while (done < count) {
            const std::size_t piece = std::min(distance + done, count - done);
            std::memcpy(out_ + done, source, piece);
            done += piece;
        }
    }

    // Any token, near the ends of the data or of the block.
    const char* exactToken()
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
        // Wide moves may have left bytes behind p.
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
        if (copySource(in_) >= position())
            return sourceAhead;
        const std::uint8_t* source = block_ + copySource(in_);
        for (std::size_t i = 0; i < count; ++i)
            out_[i] = source[i];
        in_ += 3;
        out_ += count;
        return nullptr;
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
