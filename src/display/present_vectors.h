// SPDX-License-Identifier: MIT
/// The conversions written with vectors, for any level `V`; vectors_sse2.h tells what holds for the
/// sources that use them.
#pragma once

#include "display/present_kernel_table.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace kez {

namespace {

/// Red and blue move together, by one multiplication each, to both sides of green, which stays
/// where it is; then all three move down.
///     565: red to bits 16 to 20, green in bits 10 to 15, blue to bits 5 to 9; down by 5
///     555: red to bits 16 to 20, green in bits 11 to 15, blue to bits 6 to 10; down by 6
template <class V>
struct To565 {
    typename V::Words operator()(typename V::Words pixels) const
    {
        const typename V::Words factors = (0x2000u << 16 | 4) - typename V::Words {};
        return (V::pairProducts(pixels & 0x00F800F8, factors) | (pixels & 0xFC00)) >> 5;
    }
};

template <class V>
struct To555 {
    typename V::Words operator()(typename V::Words pixels) const
    {
        const typename V::Words factors = (0x2000u << 16 | 8) - typename V::Words {};
        return (V::pairProducts(pixels & 0x00F800F8, factors) | (pixels & 0xF800)) >> 6;
    }
};

template <class V>
struct ToOther16 {
    typename V::Words operator()(typename V::Words pixels) const
    {
        return (pixels >> shifts.redRight & shifts.redMask)
            | (pixels >> shifts.greenRight & shifts.greenMask)
            | (pixels >> shifts.blueRight << shifts.blueLeft & shifts.blueMask);
    }

    ChannelShifts shifts;
};

template <class V, class Rule>
typename V::Words halvesOf(const std::uint32_t* from, const Rule& rule)
{
    return V::lowerHalves(rule(V::load(from)), rule(V::load(from + V::lanes)));
}

// The last step overlaps the one before it; fewer pixels than a step go through a buffer.
template <class V, class Rule>
void convert16(const std::uint32_t* from, std::uint16_t* to, std::size_t count, const Rule& rule)
{
    constexpr std::size_t step = 2 * V::lanes;
    if (count < step) {
        std::uint32_t pixels[step] = {};
        std::uint16_t converted[step];
        std::memcpy(pixels, from, 4 * count);
        V::store(converted, halvesOf<V>(pixels, rule));
        std::memcpy(to, converted, 2 * count);
        return;
    }
    std::size_t i = 0;
    constexpr std::size_t line = 32; // pixels that fill a cache line of the target
    for (; i + line < count; i += line) {
        fetchAhead(from + i);
        fetchAhead(from + i + line / 2);
        fetchAhead(to + i);
        for (std::size_t j = i; j < i + line; j += step)
            V::store(to + j, halvesOf<V>(from + j, rule));
    }
    for (; i + step < count; i += step)
        V::store(to + i, halvesOf<V>(from + i, rule));
    V::store(to + count - step, halvesOf<V>(from + count - step, rule));
}

template <class V>
void to565Vectors(const std::uint32_t* from, std::uint16_t* to, std::size_t count)
{
    convert16<V>(from, to, count, To565<V> {});
}

template <class V>
void to555Vectors(const std::uint32_t* from, std::uint16_t* to, std::size_t count)
{
    convert16<V>(from, to, count, To555<V> {});
}

template <class V>
void toOther16Vectors(
    const std::uint32_t* from, std::uint16_t* to, std::size_t count, const ChannelShifts& shifts)
{
    convert16<V>(from, to, count, ToOther16<V> { shifts });
}

// A store is a whole vector, of which three quarters count; the next one overwrites the rest.
template <class V>
void to24Vectors(const std::uint32_t* from, std::uint8_t* to, std::size_t count)
{
    constexpr std::size_t lanes = V::lanes;
    std::size_t i = 0;
    constexpr std::size_t line = 16; // pixels that fill a cache line of the source
    for (; 3 * (i + line) + lanes <= 3 * count; i += line) {
        fetchAhead(from + i);
        fetchAhead(to + 3 * i);
        for (std::size_t j = i; j < i + line; j += lanes)
            V::store(to + 3 * j, V::lowerThreeBytes(V::load(from + j)));
    }
    while (i < count) {
        const std::size_t part = count - i < lanes ? count - i : lanes;
        std::uint32_t pixels[lanes] = {};
        std::uint8_t converted[4 * lanes];
        std::memcpy(pixels, from + i, 4 * part);
        V::store(converted, V::lowerThreeBytes(V::load(pixels)));
        std::memcpy(to + 3 * i, converted, 3 * part);
        i += part;
    }
}

} // namespace

} // namespace kez
