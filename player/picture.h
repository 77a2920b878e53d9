// SPDX-License-Identifier: MIT
/// A picture in memory, as the player draws, reads and writes it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kez::player {

/// `width` × `height` pixels of 0xAARRGGBB, rows without padding, top row first.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    [[nodiscard]] bool empty() const { return pixels.empty(); }

    [[nodiscard]] std::uint32_t& at(int x, int y)
    {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width)
            + static_cast<std::size_t>(x)];
    }

    [[nodiscard]] std::uint32_t at(int x, int y) const
    {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width)
            + static_cast<std::size_t>(x)];
    }
};

/// A picture of one colour.
[[nodiscard]] inline Picture blankPicture(int width, int height, std::uint32_t colour)
{
    return { width, height,
        std::vector<std::uint32_t>(
            static_cast<std::size_t>(width) * static_cast<std::size_t>(height), colour) };
}

/// Lays `above` over the top left of `below`, which stays opaque, by the opacity of its pixels.
void overlay(Picture& below, const Picture& above);

/// The picture at another size, smoothly; opaque. It must have pixels, and so must the result.
[[nodiscard]] Picture resized(const Picture& picture, int width, int height);

} // namespace kez::player
