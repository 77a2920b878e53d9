// SPDX-License-Identifier: MIT
/// The colours of 1-bit and 8-bit Targa pictures, and the conversion of stored colours to blue,
/// green, red: an 8-bit value v is (v, v, v); of 15 and 16 bits, blue is the lowest five, green the
/// next, red the next, each times 8, the top bit unused; of 24 and 32 bits the first three bytes.
#pragma once

#include "core/string.h"
#include "media/targa_header.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <span>

namespace kez {

using Bgr = std::array<std::uint8_t, 3>;

inline Bgr fromTarga16(const std::uint8_t* stored)
{
    const unsigned value = stored[0] | static_cast<unsigned>(stored[1]) << 8;
    return { static_cast<std::uint8_t>((value & 0x1F) * 8),
        static_cast<std::uint8_t>(((value >> 5) & 0x1F) * 8),
        static_cast<std::uint8_t>(((value >> 10) & 0x1F) * 8) };
}

/// Entries that a file does not give are black.
struct TargaPalette {
    std::array<Bgr, 256> colours {};
};

/// Makes the palette of a 1-bit or 8-bit picture from its header and `map`, the colour map's bytes
/// (as many as the header says). The text of the refusal, or an empty one.
[[nodiscard]] String makeTargaPalette(
    const TargaHeader& header, std::span<const std::uint8_t> map, TargaPalette& palette);

} // namespace kez
