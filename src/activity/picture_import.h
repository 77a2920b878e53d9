// SPDX-License-Identifier: MIT
/// Picture files from the directory "export" into the store.
#pragma once

#include "activity/import_list.h"

namespace kez {

/// An import has ended; the current screen tells the child how, and clears it.
inline bool importDone = false;
inline bool importUnreadable = false; ///< Its file could not be read.

[[nodiscard]] const String& lastImportedName(); ///< "Image  1", without extension.

/// Reads a BMP or JPEG file, by its extension, and stores it as a new picture, "Image" and a
/// number. A photograph that the camera stored lying on its side is turned upright.
void importPicture(const ImportFile& file);

} // namespace kez
