// SPDX-License-Identifier: MIT
#include "activity/stored_pictures.h"

#include "activity/hand_over.h"
#include "activity/key_colours.h"
#include "activity/picture_names.h"
#include "activity/stored_files.h"
#include "core/diagnostics.h"
#include "media/targa_file.h"
#include "platform/files.h"
#include "sprites/picture_pixels.h"

#include <algorithm>
#include <array>
#include <vector>

namespace kez {

namespace {

constexpr int importWidth = 320;
constexpr int importHeight = 240;
constexpr int mostPixels = 1 << 28;

std::size_t pictureBytes(int width, int height)
{
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3;
}

bool isPicture(const char* name, const std::uint8_t* pixels, int width, int height)
{
    return name != nullptr && pixels != nullptr && width > 0 && height > 0
        && width <= mostPixels / height;
}

// The percentage is cut off: a side may come out a little too long, or, of a very narrow picture,
// as nothing.
int reducedTo(int size, int percent, int most)
{
    return std::clamp(static_cast<int>(std::int64_t { size } * 100 / percent), 1, most);
}

bool storePicture(const char* path, const char* name, const std::uint8_t* pixels, int width,
    int height, bool runLength, const std::uint8_t* mask)
{
    TargaFile file(nullptr);
    return file.write(path, runLength, width, height, pixels) != nullptr
        && saveClip(name, pixels, width, height, mask);
}

} // namespace

bool saveClip(
    const char* name, const std::uint8_t* pixels, int width, int height, const std::uint8_t* mask)
{
    const String path = makePath("clipboard", name, "clip");
    std::array<std::uint8_t, clipBytes> clip;
    bool saved = false;
    if (isPicture(name, pixels, width, height)) {
        makeThumbnail(pixels, width, height, mask, clip.data(), clipWidth, clipHeight);
        saved = writeStoredFile(path, clip);
    }
    if (!saved)
        debugPrint("SaveClip %s failed.", path.c_str());
    return saved;
}

bool savePhoto(const char* name, const std::uint8_t* pixels, int width, int height,
    const std::uint8_t* mask, const char* directory)
{
    bool saved = false;
    if (isPicture(name, pixels, width, height)) {
        std::vector<std::uint8_t> copy(pixels, pixels + pictureBytes(width, height));
        protectKeyColours(copy.data(), width * height);
        const String path = makePath(directory != nullptr ? directory : "photo", name, "cam");
        saved = storePicture(path.c_str(), name, copy.data(), width, height, true, mask);
    }
    if (!saved)
        debugPrint("SavePhoto %s failed.", name != nullptr ? name : "");
    return saved;
}

bool storeImportedPicture(
    const char* path, const char* name, std::uint8_t* pixels, int width, int height)
{
    importFailed = true;
    if (path == nullptr || !isPicture(name, pixels, width, height))
        return false;
    protectKeyColours(pixels, width * height);
    std::vector<std::uint8_t> reduced;
    if (width > importWidth || height > importHeight) {
        const int percent = reductionPercent(width, height, importWidth, importHeight);
        const int newWidth = reducedTo(width, percent, importWidth);
        const int newHeight = reducedTo(height, percent, importHeight);
        reduced.resize(pictureBytes(newWidth, newHeight));
        scaleNearest(pixels, width, height, reduced.data(), newWidth, newHeight);
        pixels = reduced.data();
        width = newWidth;
        height = newHeight;
    }
    importFailed = !storePicture(path, name, pixels, width, height, false, nullptr);
    if (importFailed) // a picture without a thumbnail would take room and never be seen
        deleteStoredFile(path);
    return !importFailed;
}

bool readClip(const List* entry, std::span<std::uint8_t, clipBytes> out)
{
    if (entry == nullptr)
        return false;
    const String& path = makePath("clipboard", itemName(entry).c_str(), nullptr);
    if (files::readAt(path.view(), 0, out))
        return true;
    debugPrint("The thumbnail %s cannot be read.", path.c_str());
    return false;
}

bool readMask(const char* path, std::uint8_t* out, int count)
{
    const auto pixels = static_cast<std::size_t>(std::max(count, 0));
    std::fill_n(out, pixels, std::uint8_t { 0 });
    files::Reader file(path);
    if (!file)
        return false;
    std::vector<std::uint8_t> bits((pixels + 7) / 8);
    const std::size_t known = std::min(pixels, file.read(bits) * 8);
    for (std::size_t i = 0; i < known; ++i)
        out[i] = bits[i / 8] >> (7 - i % 8) & 1;
    return true;
}

void handOverPicture(const char* name)
{
    if (name == nullptr)
        return finishWithImage(nullptr, nullptr, 0, 0);
    const String path = makePath("photo", name, "cam");
    if (!copyStoredFile(path, makePath("photo", temporaryName(0).c_str(), "cam")))
        debugPrint("%s cannot be copied for the host.", path.c_str());
    TargaFile file(path.c_str());
    int width = 0;
    int height = 0;
    const std::uint8_t* pixels = file.read(&width, &height);
    if (pixels == nullptr)
        width = height = 0;
    finishWithImage(name, pixels, width, height);
}

} // namespace kez
