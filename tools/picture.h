// SPDX-License-Identifier: MIT
/// A picture as the store keeps it in memory, and its ways from and to files. The kind of a file is
/// told by its name's ending: .clip (a thumbnail of 60 × 45 pixels, 8,100 bytes without a header),
/// .png, .bmp, .jpg and .jpeg, .cam, .tga and .targa (Targa, written run-length encoded).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kez::tools {

struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> pixels; ///< Blue, green, red; bottom row first; rows without gaps.
};

/// Both throw UserError, naming the file. Transparent parts of a PNG are read as over white.
Picture readPicture(const std::string& path);
void writePicture(const std::string& path, const Picture& picture);

} // namespace kez::tools
