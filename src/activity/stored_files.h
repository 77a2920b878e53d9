// SPDX-License-Identifier: MIT
/// The store's files, counted: what the activity adds to the disk in a run must stay below
/// `diskBudget`, and `diskUsed` is what it has added. Reading and renaming cost nothing.
#pragma once

#include "core/string.h"

#include <cstdint>
#include <span>

namespace kez {

/// Whole or not at all. Counts the change of the file's size.
bool writeStoredFile(const String& path, std::span<const std::uint8_t> bytes);

/// Replaces the destination. Counts the source's size, whatever was there before.
bool copyStoredFile(const String& from, const String& to);

bool deleteStoredFile(const String& path); ///< False also when there is no such file.

/// False, and the guide says so, when the budget does not allow that many more.
bool hasRoom(int bytes);
int addDiskUsed(std::int64_t change); ///< The new total.

} // namespace kez
