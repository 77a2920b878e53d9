// SPDX-License-Identifier: MIT
/// Little-endian words at any address of a file's or a record's bytes.
#pragma once

#include <cstdint>

namespace kez {

inline std::uint32_t loadWord16(const std::uint8_t* at)
{
    return static_cast<std::uint32_t>(at[0] | at[1] << 8);
}

inline std::uint32_t loadWord(const std::uint8_t* at)
{
    return loadWord16(at) | loadWord16(at + 2) << 16;
}

inline void storeWord(std::uint8_t* at, std::uint32_t word)
{
    for (int i = 0; i < 4; ++i)
        at[i] = static_cast<std::uint8_t>(word >> 8 * i);
}

} // namespace kez
