// SPDX-License-Identifier: MIT
/// A folder of pictures and a manifest become the records of an archive.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace kez::tools {

constexpr const char* manifestName = "manifest.txt";

struct PackedFolder {
    std::vector<std::vector<std::uint8_t>> records;
    std::size_t items = 0; ///< Lines of the manifest; an item may need several records.
    std::vector<std::string> remarks; ///< What was lost where colours were to be reduced.
};

/// Throws UserError, naming the manifest and its line, and the picture if it is at fault.
PackedFolder packFolder(const std::string& folder, const std::string& manifest = manifestName);

} // namespace kez::tools
