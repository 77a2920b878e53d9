// SPDX-License-Identifier: MIT
#include "fuzz/entries.h"

#include "media/targa_decoder.h"

#include <cstdlib>

namespace kez::fuzz {

void feedTargaFile(std::span<const std::uint8_t> bytes)
{
    TargaBytes source(bytes);
    TargaPicture picture;
    const bool sound = decodeTarga(source, picture).empty();
    const std::size_t size
        = static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height) * 3;
    if (sound != static_cast<bool>(picture.pixels) || (sound && picture.pixels.size() < size))
        std::abort();
}

} // namespace kez::fuzz
