// SPDX-License-Identifier: MIT
/// Two colours have a meaning of their own and are never stored exactly. White (255, 255, 255)
/// marks a thumbnail's margins and masked pixels; magenta (255, 0, 255) is the engine's transparent
/// colour. Bytes are in the order blue, green, red.
#pragma once

#include <cstdint>

namespace kez {

/// Before storing: white becomes (254, 255, 255), magenta (255, 0, 254).
void protectKeyColours(std::uint8_t* pixels, int count);

void turnMagentaWhite(std::uint8_t* pixels, int count); ///< For showing a thumbnail.

/// Pixels whose mask byte is not 0 become (255, 255, 254). Without a mask nothing changes.
void applyMask(std::uint8_t* pixels, const std::uint8_t* mask, int count);

} // namespace kez
