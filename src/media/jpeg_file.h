// SPDX-License-Identifier: MIT
/// JPEG files, by way of libjpeg. Pictures are three bytes a pixel (blue, green, red), rows without
/// gaps, bottom row first; a JPEG's rows go from the top.
#pragma once

#include <cstdint>

namespace kez {

/// More pixels than this are refused: they would take 300 MB.
constexpr std::int64_t mostJpegPixels = 100'000'000;

/// Writes a baseline JPEG of quality 75 with the library's usual tables, whole or not at all. 1
/// when the file was written; 0 and a diagnostic when it was not. Counts nothing against the disk
/// budget.
int writeJpeg(const char* path, const std::uint8_t* pixels, int width, int height);

/// Reads a JPEG whose colours are stored as YCbCr, in its full size. Null and a diagnostic naming
/// the file when it cannot be opened, is damaged, ends early, has other colours or is too large.
/// The picture stays until `freeJpegPixels`, which is due before the next picture is read: only the
/// last one is remembered. Needs 3 bytes a pixel; for files of several scans as many addresses
/// again, though hardly more memory.
std::uint8_t* readJpeg(const char* path, int* width, int* height);

void freeJpegPixels(); ///< Frees the last picture read, if any, and forgets it.

/// How the camera was held for the last picture read, as EXIF numbers it: 1 to 8, 1 when the file
/// says nothing. The pixels are as they are stored.
[[nodiscard]] int lastJpegOrientation();

} // namespace kez
