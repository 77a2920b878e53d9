// SPDX-License-Identifier: MIT
/// Finds, for one position after the other, the longest match that begins earlier and within the
/// reach of a copy token. The answer is exact, whatever the bytes are.
///
/// Positions whose first two bytes are equal are kept in a binary tree, sorted by the 255 bytes
/// that follow, the newest at the root. One walk down from the root meets the longest match and
/// puts the new position in. Half a MiB of memory for the trees and a quarter for their roots; a
/// walk is as long as the tree is deep, which is a few dozen steps; bytes made to defy it take up
/// to half a minute a megabyte.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace kez::tools {

struct Match {
    std::uint16_t distance = 0; ///< How far back it begins; it may overlap what it is to become.
    std::uint8_t length = 0; ///< 0: none of at least three bytes.
};

class MatchFinder {
public:
    explicit MatchFinder(std::span<const std::uint8_t> bytes);

    Match next(); ///< At the next position, from the first on; as often as there are bytes.

private:
    static constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();

    struct Node {
        std::uint32_t smaller = none; // the subtrees on either side, by their roots' positions
        std::uint32_t larger = none;
    };

    [[nodiscard]] Node& node(std::size_t position) { return nodes_[position % nodes_.size()]; }

    [[nodiscard]] std::size_t common(
        std::size_t earlier, std::size_t at, std::size_t known, std::size_t most) const;

    std::span<const std::uint8_t> bytes_;
    std::vector<std::uint32_t> roots_; // by the first two bytes
    std::vector<Node> nodes_; // of the positions within reach
    std::size_t at_ = 0;
};

} // namespace kez::tools
