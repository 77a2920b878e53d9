// SPDX-License-Identifier: MIT
/// Whether a BMP file is as long as its header says: systems there are whose loaders read on behind
/// the end of one that is not.
#pragma once

namespace kez {

/// False, with the system's last error telling why, for a file that ends before its rows do or
/// cannot be read at all. What is no BMP file, or of an unknown kind, is for the loader to refuse.
[[nodiscard]] bool bitmapFileIsWhole(const char* path);

} // namespace kez
