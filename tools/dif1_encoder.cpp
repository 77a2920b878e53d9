// SPDX-License-Identifier: MIT
#include "dif1_encoder.h"

#include "media/dif1.h"
#include "platform/files.h"

#include <algorithm>
#include <limits>

namespace kez::tools {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t shortestCopy = 3;

struct Match {
    std::uint32_t source = 0;
    std::uint8_t length = 0; // 0: none worth a token
};

// Finds the longest match within reach at each position, through chains of the positions that begin
// with the same three bytes. A chain is followed for at most `longestSearch` steps.
class MatchFinder {
public:
    explicit MatchFinder(std::span<const std::uint8_t> bytes)
        : bytes_(bytes)
        , newest_(buckets, none)
        , older_(bytes.size(), none)
    {
    }

    Match next()
    {
        const std::size_t at = at_++;
        if (bytes_.size() - at < shortestCopy)
            return {};
        const Match best = longest(at);
        std::uint32_t& newest = newest_[bucket(at)];
        older_[at] = newest;
        newest = static_cast<std::uint32_t>(at);
        return best;
    }

private:
    static constexpr std::size_t buckets = 1u << 16;
    static constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();
    // Bounds the time that repetitive pictures take.
    static constexpr int longestSearch = 2048;

    [[nodiscard]] std::size_t bucket(std::size_t at) const
    {
        const std::uint32_t three = bytes_[at] | static_cast<std::uint32_t>(bytes_[at + 1]) << 8
            | static_cast<std::uint32_t>(bytes_[at + 2]) << 16;
        return three * 2654435761u >> 16;
    }

    [[nodiscard]] Match longest(std::size_t at) const
    {
        const std::size_t most = std::min(dif1LongestCopy, bytes_.size() - at);
        std::size_t best = shortestCopy - 1;
        std::uint32_t bestSource = none;
        std::uint32_t source = newest_[bucket(at)];
        for (int step = 0; step < longestSearch && source != none; ++step) {
            if (at - source > dif1Reach)
                break;
            const std::size_t length = matchLength(source, at, best, most);
            if (length > best) {
                best = length;
                bestSource = source;
                if (best == most)
                    break;
            }
            source = older_[source];
        }
        if (bestSource == none)
            return {};
        return { bestSource, static_cast<std::uint8_t>(best) };
    }

    // 0 when it cannot be longer than `best`.
    [[nodiscard]] std::size_t matchLength(
        std::size_t source, std::size_t at, std::size_t best, std::size_t most) const
    {
        if (best >= most || bytes_[source + best] != bytes_[at + best])
            return 0;
        std::size_t length = 0;
        while (length < most && bytes_[source + length] == bytes_[at + length])
            ++length;
        return length;
    }

    std::span<const std::uint8_t> bytes_;
    std::vector<std::uint32_t> newest_;
    std::vector<std::uint32_t> older_;
    std::size_t at_ = 0;
};

std::vector<Match> findMatches(std::span<const std::uint8_t> bytes, const EncoderProgress& progress)
{
    constexpr std::size_t progressMask = 0xFFFF;
    MatchFinder finder(bytes);
    std::vector<Match> matches(bytes.size());
    for (std::size_t i = 0; i < matches.size(); ++i) {
        matches[i] = finder.next();
        if (progress && (i & progressMask) == 0)
            progress(i);
    }
    return matches;
}

// How many bytes the token at each position stands for, along the cheapest way to the end. The rest
// of a way never costs more from one position further on, so of all the copies that a match allows
// the longest is the best, and three choices remain.
Bytes cheapestTokens(const std::vector<Match>& matches)
{
    const std::size_t size = matches.size();
    Bytes tokens(size);
    std::vector<std::uint32_t> cost(size + 1, 0);
    for (std::size_t at = size; at-- > 0;) {
        tokens[at] = 1;
        cost[at] = cost[at + 1] + 2;
        if (at + 2 <= size && cost[at + 2] + 3 < cost[at]) {
            tokens[at] = 2;
            cost[at] = cost[at + 2] + 3;
        }
        const std::uint8_t length = matches[at].length;
        if (length != 0 && cost[at + length] + 3 <= cost[at]) {
            tokens[at] = length;
            cost[at] = cost[at + length] + 3;
        }
    }
    return tokens;
}

void appendCopy(Bytes& out, std::size_t at, const Match& match, std::uint8_t length)
{
    const std::size_t v = match.source - dif1Base(at);
    out.push_back(length);
    out.push_back(static_cast<std::uint8_t>(v));
    out.push_back(static_cast<std::uint8_t>(v >> 8));
}

std::size_t smallestProductFrom(std::size_t size, std::size_t& a)
{
    constexpr std::size_t largestFactor = 65535;
    std::size_t best = std::numeric_limits<std::size_t>::max();
    const std::size_t least = std::max<std::size_t>(1, (size + largestFactor - 1) / largestFactor);
    for (std::size_t factor = least; factor <= largestFactor && best > size; ++factor) {
        const std::size_t product = (size + factor - 1) / factor * factor;
        if (product < best) {
            best = product;
            a = factor;
        }
    }
    return best;
}

} // namespace

Bytes encodeDif1(std::span<const std::uint8_t> bytes, const EncoderProgress& progress)
{
    const std::vector<Match> matches = findMatches(bytes, progress);
    const Bytes tokens = cheapestTokens(matches);
    Bytes out;
    for (std::size_t at = 0; at < bytes.size(); at += tokens[at]) {
        if (tokens[at] >= shortestCopy) {
            appendCopy(out, at, matches[at], tokens[at]);
        } else {
            out.push_back(tokens[at]);
            out.insert(out.end(), &bytes[at], &bytes[at] + tokens[at]);
        }
    }
    out.insert(out.end(), { 0, 0 });
    return out;
}

std::optional<Bytes> compressArchive(Bytes bytes, const EncoderProgress& progress)
{
    std::size_t a = 1;
    const std::size_t size = smallestProductFrom(bytes.size(), a);
    if (size > files::largestRead)
        return std::nullopt;
    bytes.resize(size);
    const std::size_t b = size / a;
    Bytes out(dif1Magic.begin(), dif1Magic.end());
    for (const std::size_t factor : { a, b }) {
        out.push_back(static_cast<std::uint8_t>(factor));
        out.push_back(static_cast<std::uint8_t>(factor >> 8));
    }
    const Bytes stream = encodeDif1(bytes, progress);
    out.insert(out.end(), stream.begin(), stream.end());
    return out;
}

} // namespace kez::tools
