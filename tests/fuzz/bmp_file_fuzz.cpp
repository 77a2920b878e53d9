// SPDX-License-Identifier: MIT
#include "bmp_decoder.h"
#include "fuzz/entries.h"
#include "winbase.h"

#include <cstdlib>

namespace kez::fuzz {

// The first and the last byte of a bitmap must be there.
void feedBmpFile(std::span<const std::uint8_t> bytes)
{
    winapi::Bitmap bitmap;
    if (winapi::decodeBmp(bytes, bitmap) != NO_ERROR)
        return;
    if (bitmap.width < 1 || bitmap.height < 1 || bitmap.bytes == nullptr)
        std::abort();
    volatile BYTE touched = bitmap.row(0)[0];
    touched = bitmap.row(bitmap.height - 1)[bitmap.pitch() - 1];
    static_cast<void>(touched);
}

} // namespace kez::fuzz
