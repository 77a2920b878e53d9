// SPDX-License-Identifier: MIT
#include "activity/masked_picture.h"

#include "activity/key_colours.h"
#include "activity/picture_names.h"
#include "activity/stored_pictures.h"
#include "media/targa_file.h"

namespace kez {

MaskedPicture readMaskedPicture(const char* name)
{
    TargaFile file(makePath("photo", name, "cam").c_str());
    MaskedPicture picture;
    const std::uint8_t* pixels = file.read(&picture.width, &picture.height);
    if (pixels == nullptr || picture.width < 1 || picture.height < 1)
        return {};
    const int count = picture.width * picture.height;
    picture.pixels.assign(pixels, pixels + std::ptrdiff_t { 3 } * count);
    std::vector<std::uint8_t> mask(static_cast<std::size_t>(count));
    if (readMask(makePath("mask", name, "mask").c_str(), mask.data(), count))
        applyMask(picture.pixels.data(), mask.data(), count);
    return picture;
}

} // namespace kez
