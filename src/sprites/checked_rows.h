// SPDX-License-Identifier: MIT
/// The walker for bytes that nobody has checked yet: reads whole pictures of any mode, or finds
/// that they end early, that a row's counts do not add up to its width, or that a run is empty.
#pragma once

#include "sprites/run_rows.h"
#include "sprites/sprite_record.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace kez {

struct PictureShape {
    SpriteMode mode = SpriteMode::Raw;
    int width = 0;
    int height = 0;
    int pixelBytes = 0;
};

template <class Count>
class CheckedRows {
public:
    CheckedRows(std::span<const std::uint8_t> bytes, const PictureShape& shape)
        : left_(bytes)
        , shape_(shape)
    {
    }

    /// Reads the next row and hands each run of it to `visit`.
    bool row(auto&& visit)
    {
        int column = 0;
        do {
            int count = 0;
            if (!takeCount(count) || count > shape_.width - column)
                return false;
            column += count;
            if (column == shape_.width)
                return true;
            if (!takeCount(count) || count < 1 || count > shape_.width - column)
                return false;
            const std::size_t runBytes
                = static_cast<std::size_t>(count) * static_cast<std::size_t>(shape_.pixelBytes);
            if (left_.size() < runBytes)
                return false;
            visit(column, count, left_.data());
            left_ = left_.subspan(runBytes);
            column += count;
        } while (column != shape_.width);
        return true;
    }

private:
    bool takeCount(int& count)
    {
        if (left_.empty())
            return false;
        const auto countBytes = static_cast<std::size_t>(Count::bytesAt(left_.data()));
        if (left_.size() < countBytes)
            return false;
        count = Count::valueAt(left_.data());
        left_ = left_.subspan(countBytes);
        return true;
    }

    std::span<const std::uint8_t> left_;
    PictureShape shape_;
};

/// Hands every run to `visit(index of its first pixel, count, its bytes)`. False when the bytes are
/// no such picture; runs before the fault have been visited then. The sides must be positive.
bool visitPicture(std::span<const std::uint8_t> bytes, const PictureShape& shape, auto&& visit)
{
    if (shape.mode == SpriteMode::Raw) {
        const int area = shape.width * shape.height;
        if (bytes.size() / static_cast<std::size_t>(shape.pixelBytes)
            < static_cast<std::size_t>(area))
            return false;
        visit(0, area, bytes.data());
        return true;
    }
    const auto visitRows = [&](auto rows) {
        for (int y = 0; y < shape.height; ++y) {
            const auto visitRun = [&](int column, int count, const std::uint8_t* at) {
                visit(y * shape.width + column, count, at);
            };
            if (!rows.row(visitRun))
                return false;
        }
        return true;
    };
    if (shape.mode == SpriteMode::ShortRuns)
        return visitRows(CheckedRows<ByteCount>(bytes, shape));
    if (shape.mode == SpriteMode::LongRuns)
        return visitRows(CheckedRows<EscapedCount>(bytes, shape));
    return false;
}

} // namespace kez
