// SPDX-License-Identifier: MIT
/// Puts finished records together into an archive file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kez::tools {

enum class ArchiveForm { Raw, Compressed };

/// Writes the records in their order, whole or not at all, and returns the file's size. Throws
/// UserError.
std::size_t writeArchive(const std::string& path,
    const std::vector<std::vector<std::uint8_t>>& records, ArchiveForm form);

} // namespace kez::tools
