// SPDX-License-Identifier: MIT
/// Pictures on their way into the store and out of it. A picture called N has up to three files
/// under the data path: photo\N.cam (Targa), clipboard\N.clip (its thumbnail, raw) and mask\N.mask
/// (one bit a pixel). Pixels are three bytes, blue, green, red, bottom row first; sizes must be
/// positive.
#pragma once

#include "activity/thumbnail.h"
#include "core/list.h"

#include <cstdint>
#include <span>

namespace kez {

/// Stores a picture, its key colours protected, in `directory` ("photo" when null), and its
/// thumbnail. The pixels and the mask (which may be null) stay the caller's. True when both files
/// were written; each is the old one or the new one, whole.
bool savePhoto(const char* name, const std::uint8_t* pixels, int width, int height,
    const std::uint8_t* mask, const char* directory);

/// The thumbnail alone.
bool saveClip(
    const char* name, const std::uint8_t* pixels, int width, int height, const std::uint8_t* mask);

/// Stores a picture from outside at `path`, reduced if it is larger than 320 × 240, and its
/// thumbnail under `name`. Changes the pixels.
bool storeImportedPicture(
    const char* path, const char* name, std::uint8_t* pixels, int width, int height);

inline bool importFailed = false; ///< The last imported picture could not be stored.

/// The thumbnail of an album entry. False when not all of it could be read.
bool readClip(const List* entry, std::span<std::uint8_t, clipBytes> out);

/// Reads a mask of one bit a pixel, most significant bit first, into `count` bytes of 0 or 1; what
/// the file does not reach is 0. False when it cannot be opened.
bool readMask(const char* path, std::uint8_t* out, int count);

/// Gives the picture (null: none) to the host and ends the run. A copy stays as photo\~0.cam. A
/// picture that cannot be read is handed over as a name without pixels.
void handOverPicture(const char* name);

} // namespace kez
