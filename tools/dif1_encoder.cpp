// SPDX-License-Identifier: MIT
#include "dif1_encoder.h"

#include "match_finder.h"
#include "media/dif1.h"
#include "platform/files.h"

#include <array>
#include <limits>

namespace kez::tools {

namespace {

using Bytes = std::vector<std::uint8_t>;

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

// The costs of the cheapest ways to the end from the positions ahead, as far as a copy reaches.
class CostsAhead {
public:
    std::uint32_t& operator[](std::size_t position) { return costs_[position % costs_.size()]; }

private:
    std::array<std::uint32_t, dif1LongestCopy + 1> costs_ {};
};

// Leaves in `length` how many bytes the token at each position stands for along the cheapest way to
// the end. The rest of a way never costs more from one position further on, so of all the copies
// that a match allows the longest is the best, and three choices remain.
void chooseTokens(std::vector<Match>& matches)
{
    CostsAhead cost;
    for (std::size_t at = matches.size(); at-- > 0;) {
        std::uint8_t& length = matches[at].length;
        const std::uint32_t one = cost[at + 1] + 2;
        const bool isPair = at + 2 <= matches.size() && cost[at + 2] + 3 < one;
        const std::uint32_t literal = isPair ? cost[at + 2] + 3 : one;
        const bool isCopy = length != 0 && cost[at + length] + 3 <= literal;
        cost[at] = isCopy ? cost[at + length] + 3 : literal;
        if (!isCopy)
            length = isPair ? 2 : 1;
    }
}

void appendCopy(Bytes& out, std::size_t at, const Match& match)
{
    const std::size_t v = at - match.distance - dif1Base(at);
    out.push_back(match.length);
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
    constexpr std::uint8_t longestLiteral = 2;
    std::vector<Match> tokens = findMatches(bytes, progress);
    chooseTokens(tokens);
    Bytes out;
    for (std::size_t at = 0; at < bytes.size(); at += tokens[at].length) {
        const Match& token = tokens[at];
        if (token.length > longestLiteral) {
            appendCopy(out, at, token);
        } else {
            out.push_back(token.length);
            out.insert(out.end(), &bytes[at], &bytes[at] + token.length);
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
