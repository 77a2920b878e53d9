// SPDX-License-Identifier: MIT
#include "bmp_runs.h"

#include "winbase.h"

#include <cstring>

namespace kez::winapi {

namespace {

enum Command : BYTE { RowEnds = 0, PictureEnds = 1, Skip = 2 };

void paint(BYTE* pixel, const Colour& colour)
{
    pixel[0] = colour.blue;
    pixel[1] = colour.green;
    pixel[2] = colour.red;
}

} // namespace

BmpRuns::BmpRuns(const BmpHeader& header, Bitmap& bitmap)
    : header_(header)
    , bitmap_(bitmap)
    , areNibbles_(header.coding == BmpCoding::NibbleRuns)
{
    const Colour& first = header.palette[0];
    if (first == Colour {})
        return;
    for (int x = 0; x < bitmap.width; ++x)
        paint(bitmap.row(0) + 3 * x, first);
    for (int y = 1; y < bitmap.height; ++y)
        std::memcpy(bitmap.row(y), bitmap.row(0), static_cast<std::size_t>(bitmap.pitch()));
}

DWORD BmpRuns::decode()
{
    bool isLast = false;
    while (!isLast && y_ < bitmap_.height) {
        if (!has(2))
            return isFull() ? NO_ERROR : ERROR_HANDLE_EOF;
        const BYTE count = take();
        const BYTE value = take();
        if (count != 0)
            run(count, value);
        else if (!command(value, isLast))
            return ERROR_HANDLE_EOF;
    }
    return NO_ERROR;
}

void BmpRuns::put(unsigned index)
{
    if (x_ < bitmap_.width)
        paint(bitmap_.row(static_cast<int>(y_)) + 3 * x_, header_.palette[index]);
    ++x_;
}

void BmpRuns::run(int count, BYTE value)
{
    for (int i = 0; i < count; ++i) {
        const unsigned nibble = i % 2 == 0 ? value >> 4 : value & 15u;
        put(areNibbles_ ? nibble : value);
    }
}

bool BmpRuns::literal(int count)
{
    const int bytes = areNibbles_ ? (count + 1) / 2 : count;
    const auto padded = static_cast<std::size_t>((bytes + 1) / 2 * 2);
    if (!has(static_cast<std::size_t>(bytes)))
        return false;
    const std::size_t behind = has(padded) ? at_ + padded : header_.pixels.size();
    for (int i = 0; i < bytes; ++i) {
        const BYTE value = take();
        if (areNibbles_) {
            put(value >> 4);
            if (2 * i + 1 < count)
                put(value & 15u);
        } else {
            put(value);
        }
    }
    at_ = behind;
    return true;
}

bool BmpRuns::command(BYTE code, bool& isLast)
{
    switch (code) {
    case RowEnds:
        x_ = 0;
        ++y_;
        return true;
    case PictureEnds:
        isLast = true;
        return true;
    case Skip:
        if (!has(2))
            return false;
        x_ += take();
        y_ += take();
        return true;
    default:
        return literal(code);
    }
}

bool BmpRuns::isFull() const
{
    return y_ + 1 == bitmap_.height && x_ >= bitmap_.width;
}

} // namespace kez::winapi
