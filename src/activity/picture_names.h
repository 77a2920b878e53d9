// SPDX-License-Identifier: MIT
/// How pictures and their files are named. A numbered name is a prefix and a number right-aligned
/// in three characters, so that names sort by number: "Photo  7", "Photo 42", "Photo123". Names
/// that begin with "~" are temporary and never appear in the album.
#pragma once

#include "core/string.h"

#include <cstdint>

namespace kez {

void setDataPath(const char* dataPath); ///< Null or empty: the current directory.

/// Data path, directory (made if it is missing), name and extension put together; each may be null.
/// The text stays valid until the next call.
const String& makePath(const char* directory, const char* name, const char* extension);

/// A number above 999 becomes 0.
String& makeNumberedName(String& out, const char* prefix, int number);

String temporaryName(int number); ///< "~1" to "~20" for the camera slots, "~0" for the hand-over.

/// The lowest number from `first` on whose file does not exist; 999 when all up to 998 are taken.
/// The prefix is also the directory.
int findFreeNumber(const char* prefix, int first, const char* extension);
int findFreeExportNumber(); ///< Neither a "bmp" nor a "jpg" of that name in "Export".
int findFreeImportNumber(); ///< "Image" names in "Photo".

/// Whether a child may type it in a name: a character's code.
[[nodiscard]] bool mayStandInName(std::uint32_t key);

String nameWithoutExtension(const String& fileName); ///< Cut at the last dot.

} // namespace kez
