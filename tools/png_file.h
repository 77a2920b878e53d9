// SPDX-License-Identifier: MIT
/// PNG files as pixels of 0xAARRGGBB, top row first, opacity not multiplied in.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace kez::tools {

struct PngPicture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
};

/// Both throw UserError. Pictures beyond the size of a sprite are refused before they are decoded.
PngPicture readPng(const std::string& path);
void writePng(const std::string& path, const PngPicture& picture);

} // namespace kez::tools
