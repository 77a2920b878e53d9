// SPDX-License-Identifier: MIT
/// Puts finished records together into an archive file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kez::tools {

enum class ArchiveForm { Raw, Compressed };

struct ArchiveSize {
    std::size_t file = 0;
    std::size_t unpacked = 0;
};

/// Writes the records in their order, whole or not at all; not compressed if that is shorter.
/// Throws UserError.
ArchiveSize writeArchive(const std::string& path,
    const std::vector<std::vector<std::uint8_t>>& records, ArchiveForm form);

} // namespace kez::tools
