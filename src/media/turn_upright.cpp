// SPDX-License-Identifier: MIT
// A quarter turn is a transposition and the rows' order turned round before or after it. A large
// picture is transposed in place: strips of rows each by itself, through a buffer that stays in the
// cache, after which the strips' columns only have to find their places, whole.
#include "media/turn_upright.h"

#include "media/byte_block.h"
#include "media/targa_rows.h"

#include <algorithm>
#include <cstring>
#include <span>
#include <utility>

namespace kez {

namespace {

constexpr std::size_t pixelBytes = 3;
constexpr std::size_t mostStripBytes = std::size_t { 1 } << 20;
constexpr std::size_t tileColumns = 16; // beside each other in a cache line

/// A matrix of pixels, row by row.
struct Matrix {
    std::size_t rows;
    std::size_t columns;

    [[nodiscard]] std::size_t count() const { return rows * columns; }
};

/// The largest number of rows that divides the picture evenly and makes a strip of bearable size.
std::size_t stripRows(const Matrix& matrix)
{
    const std::size_t most = mostStripBytes / (matrix.columns * pixelBytes);
    std::size_t rows = std::clamp<std::size_t>(most, 1, matrix.rows);
    while (matrix.rows % rows != 0)
        --rows;
    return rows;
}

class Marks {
public:
    explicit Marks(std::size_t count)
        : bits_(ByteBlock::zeroed(count / 8 + 1))
    {
    }

    explicit operator bool() const { return static_cast<bool>(bits_); }

    [[nodiscard]] bool has(std::size_t at) const
    {
        return (bits_.data()[at / 8] >> at % 8 & 1) != 0;
    }

    void set(std::size_t at) { bits_.data()[at / 8] |= static_cast<std::uint8_t>(1 << at % 8); }

private:
    ByteBlock bits_;
};

class Transposition {
public:
    Transposition(std::uint8_t* pixels, const Matrix& matrix)
        : pixels_(pixels)
        , matrix_(matrix)
        , rowsFirst_(stripRows(matrix) >= stripRows(flipped(matrix)))
        , strip_(rowsFirst_ ? Matrix { stripRows(matrix), matrix.columns }
                            : Matrix { matrix.rows, stripRows(flipped(matrix)) })
        , pieces_(rowsFirst_ ? Matrix { matrix.rows / strip_.rows, matrix.columns }
                             : Matrix { matrix.rows, matrix.columns / strip_.columns })
        , buffer_(ByteBlock::unset(strip_.count() * pixelBytes))
        , placed_(pieces_.count())
    {
    }

    explicit operator bool() const { return buffer_ && placed_; }

    void run()
    {
        if (rowsFirst_)
            turnStrips();
        placePieces();
        if (!rowsFirst_)
            turnStrips();
    }

private:
    static Matrix flipped(const Matrix& matrix) { return { matrix.columns, matrix.rows }; }

    void turnStrips()
    {
        const std::size_t bytes = strip_.count() * pixelBytes;
        for (std::size_t at = 0; at < matrix_.count() * pixelBytes; at += bytes) {
            turnStrip(pixels_ + at, buffer_.data());
            std::memcpy(pixels_ + at, buffer_.data(), bytes);
        }
    }

    void turnStrip(const std::uint8_t* from, std::uint8_t* to) const
    {
        for (std::size_t left = 0; left < strip_.columns; left += tileColumns) {
            const std::size_t right = std::min(left + tileColumns, strip_.columns);
            for (std::size_t row = 0; row < strip_.rows; ++row)
                for (std::size_t column = left; column < right; ++column)
                    std::memcpy(to + (column * strip_.rows + row) * pixelBytes,
                        from + (row * strip_.columns + column) * pixelBytes, pixelBytes);
        }
    }

    // Transposes the pieces, stretches of pixels that stay together.
    void placePieces()
    {
        if (pieces_.rows == 1 || pieces_.columns == 1)
            return;
        for (std::size_t i = 0; i < pieces_.count(); ++i)
            if (!placed_.has(i))
                placeRound(i);
    }

    // Every piece goes to its place, whose piece goes to its place, and so on until the round is
    // closed.
    void placeRound(std::size_t start)
    {
        const std::size_t bytes = matrix_.count() / pieces_.count() * pixelBytes;
        std::memcpy(buffer_.data(), pixels_ + start * bytes, bytes);
        for (std::size_t to = start;;) {
            const std::size_t from = to % pieces_.rows * pieces_.columns + to / pieces_.rows;
            placed_.set(to);
            const std::uint8_t* piece = from == start ? buffer_.data() : pixels_ + from * bytes;
            std::memcpy(pixels_ + to * bytes, piece, bytes);
            if (from == start)
                return;
            to = from;
        }
    }

    std::uint8_t* pixels_;
    Matrix matrix_;
    bool rowsFirst_; ///< Strips are of whole rows; else of columns, once the pieces are placed.
    Matrix strip_;
    Matrix pieces_;
    ByteBlock buffer_;
    Marks placed_;
};

} // namespace

bool turnUpright(std::uint8_t* pixels, int& width, int& height, int orientation)
{
    if (orientation < 2 || orientation > 8 || width < 1 || height < 1)
        return true;
    const Matrix stored { static_cast<std::size_t>(height), static_cast<std::size_t>(width) };
    const std::span<std::uint8_t> picture(pixels, stored.count() * pixelBytes);
    if (orientation == 2)
        mirrorRows(picture, stored.columns * pixelBytes);
    if (orientation == 3) // all pixels in the opposite order
        mirrorRows(picture, picture.size());
    if (orientation == 4)
        flipRows(picture, stored.columns * pixelBytes);
    if (orientation < 5)
        return true;

    Transposition transposition(pixels, stored);
    if (!transposition)
        return false;
    if (orientation == 5 || orientation == 8)
        flipRows(picture, stored.columns * pixelBytes);
    transposition.run();
    if (orientation == 5 || orientation == 6)
        flipRows(picture, stored.rows * pixelBytes);
    std::swap(width, height);
    return true;
}

} // namespace kez
