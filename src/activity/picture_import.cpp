// SPDX-License-Identifier: MIT
#include "activity/picture_import.h"

#include "activity/picture_names.h"
#include "activity/stored_pictures.h"
#include "core/diagnostics.h"
#include "display/bitmap_surface.h"
#include "display/screen.h"
#include "media/byte_block.h"
#include "media/jpeg_file.h"
#include "media/turn_upright.h"
#include "platform/files.h"

#include <cstring>

namespace kez {

namespace {

String& importedName()
{
    static String name;
    return name;
}

// Numbers end at 999: a picture that has the last one must not be replaced.
void store(std::uint8_t* pixels, int width, int height)
{
    const String path = makePath("photo", importedName().c_str(), "cam");
    if (files::exists(path.view())) {
        debugPrint("There are too many imported pictures: %.600s exists.", path.c_str());
        importFailed = true;
        return;
    }
    storeImportedPicture(path.c_str(), importedName().c_str(), pixels, width, height);
}

bool importJpeg(const char* path)
{
    int width = 0;
    int height = 0;
    std::uint8_t* const pixels = readJpeg(path, &width, &height);
    if (pixels == nullptr)
        return false;
    if (!turnUpright(pixels, width, height, lastJpegOrientation()))
        debugPrint("There is no memory to turn %.600s upright.", path);
    store(pixels, width, height);
    freeJpegPixels();
    return true;
}

/// Packed pixels, bottom row first. Empty when the surface cannot be locked or memory is short.
ByteBlock pixelsOf(IDirectDrawSurface& surface, const BITMAP& size)
{
    const std::size_t rowBytes = static_cast<std::size_t>(size.bmWidth) * 3;
    ByteBlock pixels = ByteBlock::unset(rowBytes * static_cast<std::size_t>(size.bmHeight));
    const SurfaceLock lock = pixels ? lockSurface(surface, DDLOCK_READONLY) : SurfaceLock();
    if (!lock)
        return {};
    for (int y = 0; y < size.bmHeight; ++y) {
        const auto rowsBelow = static_cast<std::size_t>(size.bmHeight - 1 - y);
        std::memcpy(pixels.data() + rowsBelow * rowBytes, lock.row(y), rowBytes);
    }
    return pixels;
}

bool importBitmap(const char* path)
{
    BITMAP size = {};
    IDirectDrawSurface* const surface = loadBitmapSurface(path, 0, 0, &size);
    if (surface == nullptr)
        return false;
    ByteBlock pixels = pixelsOf(*surface, size);
    surface->Release();
    if (!pixels)
        return false;
    store(pixels.data(), size.bmWidth, size.bmHeight);
    return true;
}

} // namespace

const String& lastImportedName()
{
    return importedName();
}

void importPicture(const ImportFile& file)
{
    const String source = makePath("export", file.baseName.c_str(), file.extension.c_str());
    makeNumberedName(importedName(), "Image", findFreeImportNumber());
    const bool isJpeg = file.extension.compareIgnoringCase("JPG") == 0;
    const bool wasRead = isJpeg ? importJpeg(source.c_str()) : importBitmap(source.c_str());
    importUnreadable = !wasRead;
    importDone = true;
}

} // namespace kez
