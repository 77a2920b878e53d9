// SPDX-License-Identifier: MIT
#include "activity/picture_export.h"

#include "activity/masked_picture.h"
#include "activity/picture_names.h"
#include "activity/stored_files.h"
#include "core/diagnostics.h"
#include "media/jpeg_file.h"
#include "platform/files.h"
#include "sprites/bitmap_file.h"

namespace kez {

namespace {

bool writeBmp(const char* path, const MaskedPicture& picture)
{
    const ByteBlock block = makeBitmap(picture.pixels.data(), picture.width, picture.height);
    const bool written = writeBitmapFile(block, path);
    if (!written)
        reportLastError("The BMP file %.600s cannot be written.", path);
    return written;
}

bool writePicture(const String& path, const char* format, const MaskedPicture& picture)
{
    const auto sizeBefore = static_cast<std::int64_t>(files::size(path.view()));
    const bool written = String(format) == "JPG"
        ? writeJpeg(path.c_str(), picture.pixels.data(), picture.width, picture.height) == 1
        : writeBmp(path.c_str(), picture);
    if (written)
        addDiskUsed(static_cast<std::int64_t>(files::size(path.view())) - sizeBefore);
    return written;
}

} // namespace

void exportPicture(const String& pictureName, const String& fileName, const char* format)
{
    const MaskedPicture picture = readMaskedPicture(pictureName.c_str());
    const String path = makePath("export", fileName.c_str(), format);
    exportDone = !picture.pixels.empty() && writePicture(path, format, picture);
}

} // namespace kez
