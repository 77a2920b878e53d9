// SPDX-License-Identifier: MIT
/// Sprites for a test, of one colour, put into the module's archive.
#pragma once

#include "media/resource_archive.h"
#include "platform/temporary_folder.h"
#include "sprites/sprite_builder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace kez::test {

struct SpriteFile {
    const char* name; ///< Without ".sp5".
    int x; ///< The centre's stage coordinates.
    int y;
    int width;
    int height;
    int depth = 100;
    std::uint32_t pixel = 0xFF808080;
};

inline void addSprite(const TemporaryFolder& folder, const SpriteFile& sprite)
{
    const std::vector<std::uint32_t> pixels(
        static_cast<std::size_t>(sprite.width * sprite.height), sprite.pixel);
    SpriteRecord record;
    const std::string fileName = std::string(sprite.name) + ".sp5";
    record.makeTrueColour(
        fileName.c_str(), sprite.x, sprite.y, sprite.width, sprite.height, pixels.data(), false);
    record.depth = sprite.depth;
    const std::vector<std::uint8_t> bytes = record.serialise();
    folder.put(fileName, std::string(bytes.begin(), bytes.end()));
    ASSERT_NE(archive()->addFile((folder / fileName).c_str()), nullptr);
}

} // namespace kez::test
