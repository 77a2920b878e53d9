// SPDX-License-Identifier: MIT
/// The album: the stored pictures in the order in which the photo book shows them. An entry is a
/// node whose name is a thumbnail's file name, "Photo  7.clip".
#pragma once

#include "core/list.h"

namespace kez {

constexpr int longestAlbumName = 8; ///< Characters, without the extension.

List& album(); ///< Sorted by byte since the last `scanAlbum`.

/// Reads the album anew: every thumbnail that has a picture, has a name of at most eight characters
/// and is not temporary.
void scanAlbum();

enum class RenameResult {
    Unchanged, ///< No entry, or the name it has already.
    Blank, ///< An empty name or spaces; nothing has changed.
    Refused, ///< The name is in use or not allowed; nothing has changed.
    Renamed,
};

/// Renames a picture with its thumbnail and mask, or a flip book with its thumbnail. The album is
/// not sorted again.
RenameResult renamePicture(List* entry, const char* newName);

/// Deletes the files of a picture; those that are missing are skipped. The result of the last
/// deletion; false when there was nothing to delete.
bool deletePicture(const char* name);

} // namespace kez
