// SPDX-License-Identifier: MIT
// The rules of the conversions as they read: what every vector level must give to the bit.
#include "display/present_kernel_table.h"

namespace kez {

namespace {

void to565(const std::uint32_t* from, std::uint16_t* to, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        to[i] = static_cast<std::uint16_t>(
            (from[i] >> 8 & 0xF800) | (from[i] >> 5 & 0x07E0) | (from[i] >> 3 & 0x001F));
}

void to555(const std::uint32_t* from, std::uint16_t* to, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i)
        to[i] = static_cast<std::uint16_t>(
            (from[i] >> 9 & 0x7C00) | (from[i] >> 6 & 0x03E0) | (from[i] >> 3 & 0x001F));
}

void toOther16(
    const std::uint32_t* from, std::uint16_t* to, std::size_t count, const ChannelShifts& shifts)
{
    for (std::size_t i = 0; i < count; ++i)
        to[i] = static_cast<std::uint16_t>((from[i] >> shifts.redRight & shifts.redMask)
            | (from[i] >> shifts.greenRight & shifts.greenMask)
            | (from[i] >> shifts.blueRight << shifts.blueLeft & shifts.blueMask));
}

void to24(const std::uint32_t* from, std::uint8_t* to, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i, to += 3) {
        to[0] = static_cast<std::uint8_t>(from[i]);
        to[1] = static_cast<std::uint8_t>(from[i] >> 8);
        to[2] = static_cast<std::uint8_t>(from[i] >> 16);
    }
}

} // namespace

const PresentKernels plainPresentKernels = { to565, to555, toOther16, to24 };

} // namespace kez
