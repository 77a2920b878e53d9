// SPDX-License-Identifier: MIT
/// Stored pictures out of the store, as files for other programs.
#pragma once

#include "core/string.h"

namespace kez {

/// A picture has been written; the current screen tells the child and clears it.
inline bool exportDone = false;

/// Writes the stored picture, its masked pixels white, as export\(fileName).(format), whole or not
/// at all; the format is "JPG" or "BMP". Sets `exportDone` accordingly. The change of the file's
/// size counts against the disk budget.
void exportPicture(const String& pictureName, const String& fileName, const char* format);

} // namespace kez
