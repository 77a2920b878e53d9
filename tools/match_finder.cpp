// SPDX-License-Identifier: MIT
#include "match_finder.h"

#include "media/dif1.h"

#include <algorithm>

namespace kez::tools {

namespace {

constexpr std::size_t shortestCopy = 3;

} // namespace

MatchFinder::MatchFinder(std::span<const std::uint8_t> bytes)
    : bytes_(bytes)
    , roots_(std::size_t { 1 } << 16, none)
    , nodes_(dif1Reach + 1)
{
}

// How many bytes agree, when `known` are known to.
std::size_t MatchFinder::common(
    std::size_t earlier, std::size_t at, std::size_t known, std::size_t most) const
{
    while (known < most && bytes_[earlier + known] == bytes_[at + known])
        ++known;
    return known;
}

// The tree is split at the new position's bytes: what is smaller on the way down becomes its one
// subtree, what is larger the other. Whatever lies below a position is older than it, so the first
// one out of reach ends the walk. A position with all 255 bytes equal is replaced.
Match MatchFinder::next()
{
    const std::size_t at = at_++;
    const std::size_t most = std::min(dif1LongestCopy, bytes_.size() - at);
    if (most < shortestCopy)
        return {};
    std::uint32_t& root = roots_[bytes_[at] | std::size_t { bytes_[at + 1] } << 8];
    std::size_t met = root;
    root = static_cast<std::uint32_t>(at);
    std::uint32_t* smaller = &node(at).smaller;
    std::uint32_t* larger = &node(at).larger;
    std::size_t smallerCommon = 0;
    std::size_t largerCommon = 0;
    Match best;
    while (met != none && at - met <= dif1Reach) {
        Node& other = node(met);
        const std::size_t length = common(met, at, std::min(smallerCommon, largerCommon), most);
        if (length >= shortestCopy && length > best.length)
            best = { static_cast<std::uint16_t>(at - met), static_cast<std::uint8_t>(length) };
        if (length == most) {
            *smaller = other.smaller;
            *larger = other.larger;
            return best;
        }
        if (bytes_[met + length] < bytes_[at + length]) {
            *smaller = static_cast<std::uint32_t>(met);
            smaller = &other.larger;
            smallerCommon = length;
        } else {
            *larger = static_cast<std::uint32_t>(met);
            larger = &other.smaller;
            largerCommon = length;
        }
        met = bytes_[met + length] < bytes_[at + length] ? other.larger : other.smaller;
    }
    *smaller = none;
    *larger = none;
    return best;
}

} // namespace kez::tools
