// SPDX-License-Identifier: MIT
/// The span kernel that shows pictures at other sizes, written with vectors: it picks the pixels of
/// a source row that the displayed columns show. vectors_sse2.h tells what holds for the sources
/// that use it.
#pragma once

#include "core/vectors_sse2.h"
#include "sprites/span_kernel_table.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace kez {

namespace {

/// Addresses pixels by their columns. The row's column 0 may lie before the record, so that its
/// address is a number only.
class PixelsByColumn {
public:
    explicit PixelsByColumn(const PickedColumns& from)
        : origin_(reinterpret_cast<std::uintptr_t>(from.run)
            - 4 * static_cast<std::uintptr_t>(from.runColumn))
    {
    }

    const std::uint8_t* operator()(std::int32_t column) const
    {
        return reinterpret_cast<const std::uint8_t*>(
            origin_ + 4 * static_cast<std::uintptr_t>(column));
    }

private:
    std::uintptr_t origin_;
};

/// Pixel by pixel: what reducing by far takes, and short runs.
inline void pickFours(std::uint32_t* to, const PickedColumns& from, std::size_t count)
{
    const PixelsByColumn at(from);
    const std::int32_t* const columns = from.columns;
    std::size_t i = 0;
    for (; i + 4 <= count; i += 4)
        Sse2Vectors::store(to + i,
            Sse2Vectors::joined(
                at(columns[i]), at(columns[i + 1]), at(columns[i + 2]), at(columns[i + 3])));
    for (; i < count; ++i)
        std::memcpy(to + i, at(columns[i]), 4);
}

template <class V, class... Others>
void pickVectors(std::uint32_t* to, const PickedColumns& from, std::size_t count);

template <class... Vectors>
void pickBy(std::uint32_t* to, const PickedColumns& from, std::size_t count)
{
    if constexpr (sizeof...(Vectors) == 0)
        pickFours(to, from, count);
    else
        pickVectors<Vectors...>(to, from, count);
}

/// Picks while the columns of a vector lie within its reach of the source; the others, which reach
/// further, do the rest. The last step overlaps the one before it.
template <class V, class... Others>
void pickVectors(std::uint32_t* to, const PickedColumns& from, std::size_t count)
{
    constexpr auto reach = static_cast<std::int32_t>(V::reach);
    if (count < V::lanes || from.runLength < reach)
        return pickBy<Others...>(to, from, count);
    const PixelsByColumn at(from);
    const std::int32_t lastStart = from.runColumn + from.runLength - reach;
    for (std::size_t done = 0; done < count; done += V::lanes) {
        const std::size_t i = done + V::lanes <= count ? done : count - V::lanes;
        const std::int32_t first = from.columns[i];
        const std::int32_t start = first < lastStart ? first : lastStart;
        if (from.columns[i + V::lanes - 1] - start >= reach)
            return pickBy<Others...>(to + done,
                { from.columns + done, from.run, from.runColumn, from.runLength }, count - done);
        const auto positions = V::load(from.columns + i) - static_cast<std::uint32_t>(start);
        V::store(to + i, V::picked(at(start), positions));
    }
}

} // namespace

} // namespace kez
