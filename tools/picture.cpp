// SPDX-License-Identifier: MIT
#include "picture.h"

#include "activity/thumbnail.h"
#include "media/jpeg_file.h"
#include "media/targa_file.h"
#include "platform/files.h"
#include "png_file.h"
#include "sprites/bitmap_file.h"
#include "user_error.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace kez::tools {

namespace {

[[noreturn]] void failToWrite(const std::string& path)
{
    throw UserError(path + ": the file cannot be written; is there room and the right to?");
}

Picture readTarga(const std::string& path)
{
    TargaFile file(path.c_str());
    Picture picture;
    const std::uint8_t* pixels = file.read(&picture.width, &picture.height);
    if (pixels == nullptr)
        throw UserError(file.lastMessage().c_str());
    const auto count
        = static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
    picture.pixels.assign(pixels, pixels + count * 3);
    return picture;
}

void writeTarga(const std::string& path, const Picture& picture)
{
    TargaFile file(path.c_str());
    if (file.write(path.c_str(), true, picture.width, picture.height, picture.pixels.data())
        == nullptr)
        throw UserError(file.lastMessage().c_str());
}

Picture readThumbnail(const std::string& path)
{
    const auto bytes = files::read(path, clipBytes);
    if (!bytes || bytes->size() != clipBytes)
        throw UserError(path + ": it is no thumbnail, which has exactly 8100 bytes");
    return { clipWidth, clipHeight, *bytes };
}

void writeThumbnail(const std::string& path, const Picture& picture)
{
    std::array<std::uint8_t, clipBytes> clip {};
    makeThumbnail(picture.pixels.data(), picture.width, picture.height, nullptr, clip.data(),
        clipWidth, clipHeight);
    if (!files::write(path, clip))
        failToWrite(path);
}

// One channel over white.
std::uint8_t overWhite(std::uint32_t pixel, unsigned shift)
{
    const std::uint32_t opacity = pixel >> 24;
    const std::uint32_t value = pixel >> shift & 0xFF;
    return static_cast<std::uint8_t>((value * opacity + 255 * (255 - opacity) + 127) / 255);
}

Picture readPngPicture(const std::string& path)
{
    const PngPicture png = readPng(path);
    Picture picture { png.width, png.height, {} };
    picture.pixels.reserve(png.pixels.size() * 3);
    for (int y = png.height; y-- > 0;) {
        const auto row = png.pixels.begin() + std::ptrdiff_t { y } * png.width;
        std::for_each(row, row + png.width, [&](std::uint32_t pixel) {
            for (const unsigned shift : { 0u, 8u, 16u })
                picture.pixels.push_back(overWhite(pixel, shift));
        });
    }
    return picture;
}

void writePngPicture(const std::string& path, const Picture& picture)
{
    PngPicture png { picture.width, picture.height, {} };
    png.pixels.reserve(picture.pixels.size() / 3);
    const std::ptrdiff_t rowBytes = std::ptrdiff_t { picture.width } * 3;
    for (std::ptrdiff_t y = picture.height; y-- > 0;) {
        const std::uint8_t* pixel = picture.pixels.data() + y * rowBytes;
        for (int x = 0; x < picture.width; ++x, pixel += 3)
            png.pixels.push_back(0xFF000000 | std::uint32_t { pixel[2] } << 16
                | std::uint32_t { pixel[1] } << 8 | pixel[0]);
    }
    writePng(path, png);
}

Picture readBitmap(const std::string& path)
{
    const HANDLE bitmap = LoadImageA(nullptr, files::nativePath(path).c_str(), IMAGE_BITMAP, 0, 0,
        LR_LOADFROMFILE | LR_CREATEDIBSECTION);
    BITMAP held {};
    if (bitmap == nullptr || GetObjectA(bitmap, sizeof held, &held) == 0)
        throw UserError(path + ": it is missing, damaged, or of a kind of BMP that is not read");
    Picture picture { held.bmWidth, held.bmHeight, {} };
    const auto* row = static_cast<const std::uint8_t*>(held.bmBits);
    for (int y = 0; y < held.bmHeight; ++y, row += held.bmWidthBytes)
        picture.pixels.insert(picture.pixels.end(), row, row + std::ptrdiff_t { 3 } * held.bmWidth);
    DeleteObject(bitmap);
    return picture;
}

Picture readJpegPicture(const std::string& path)
{
    Picture picture;
    const std::uint8_t* pixels = readJpeg(path.c_str(), &picture.width, &picture.height);
    if (pixels == nullptr)
        throw UserError(path
            + ": it is missing, damaged, or a JPEG without the usual colours, which is not read");
    const auto count
        = static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
    picture.pixels.assign(pixels, pixels + count * 3);
    freeJpegPixels();
    return picture;
}

void writeJpegPicture(const std::string& path, const Picture& picture)
{
    if (writeJpeg(path.c_str(), picture.pixels.data(), picture.width, picture.height) != 1)
        failToWrite(path);
}

void writeBitmap(const std::string& path, const Picture& picture)
{
    const ByteBlock block = makeBitmap(picture.pixels.data(), picture.width, picture.height);
    if (!writeBitmapFile(block, path.c_str()))
        failToWrite(path);
}

// The kinds of files, by the ending of the name.
struct Kind {
    const char* ending;
    Picture (*read)(const std::string& path);
    void (*write)(const std::string& path, const Picture& picture);
};

constexpr Kind kinds[] = {
    { ".cam", readTarga, writeTarga },
    { ".tga", readTarga, writeTarga },
    { ".targa", readTarga, writeTarga },
    { ".clip", readThumbnail, writeThumbnail },
    { ".png", readPngPicture, writePngPicture },
    { ".bmp", readBitmap, writeBitmap },
    { ".jpg", readJpegPicture, writeJpegPicture },
    { ".jpeg", readJpegPicture, writeJpegPicture },
};

const Kind* kindOf(const std::string& path)
{
    const String name(path);
    for (const Kind& kind : kinds) {
        const std::string_view ending = kind.ending;
        if (path.size() > ending.size()
            && String(name.view().substr(path.size() - ending.size())).compareIgnoringCase(ending)
                == 0)
            return &kind;
    }
    return nullptr;
}

std::string knownKinds()
{
    std::string names;
    for (const Kind& kind : kinds)
        names += (names.empty() ? "" : ", ") + std::string(kind.ending);
    return names;
}

} // namespace

Picture readPicture(const std::string& path)
{
    const Kind* kind = kindOf(path);
    if (kind == nullptr)
        throw UserError(
            path + ": this kind of picture is not read; those read end in " + knownKinds());
    return kind->read(path);
}

void writePicture(const std::string& path, const Picture& picture)
{
    const Kind* kind = kindOf(path);
    if (kind == nullptr)
        throw UserError(
            path + ": this kind of picture is not written; those written end in " + knownKinds());
    kind->write(path, picture);
}

} // namespace kez::tools
