// SPDX-License-Identifier: MIT
#include "png_file.h"

#include "platform/files.h"
#include "sprites/sprite_record.h"
#include "user_error.h"

#include <png.h>

#include <bit>

namespace kez::tools {

namespace {

static_assert(std::endian::native == std::endian::little, "PNG_FORMAT_BGRA gives 0xAARRGGBB");

// libpng's own description of a picture; frees what libpng keeps behind it.
class PngImage {
public:
    PngImage() { image_.version = PNG_IMAGE_VERSION; }

    ~PngImage() { png_image_free(&image_); }

    PngImage(const PngImage&) = delete;
    PngImage& operator=(const PngImage&) = delete;

    png_image* operator->() { return &image_; }

    png_image* get() { return &image_; }

    [[noreturn]] void fail(const std::string& path) const
    {
        throw UserError(
            path + ": it is no sound PNG picture (" + image_.message + "); export it anew as PNG");
    }

private:
    png_image image_ {};
};

void checkSize(const std::string& path, png_uint_32 width, png_uint_32 height)
{
    constexpr auto longest = static_cast<png_uint_32>(largestSpriteSide);
    if (width == 0 || height == 0 || width > longest || height > longest
        || std::uint64_t { width } * height > static_cast<std::uint64_t>(largestSpriteArea))
        throw UserError(path + ": " + std::to_string(width) + " by " + std::to_string(height)
            + " pixels are too many (or none); scale the picture to at most 16 million pixels");
}

} // namespace

PngPicture readPng(const std::string& path)
{
    const auto file = files::read(path);
    if (!file)
        throw UserError(path + ": the file cannot be read; is the name spelt right?");
    PngImage image;
    if (png_image_begin_read_from_memory(image.get(), file->data(), file->size()) == 0)
        image.fail(path);
    checkSize(path, image->width, image->height);
    image->format = PNG_FORMAT_BGRA;
    PngPicture picture { static_cast<int>(image->width), static_cast<int>(image->height), {} };
    picture.pixels.resize(std::size_t { image->width } * image->height);
    if (png_image_finish_read(image.get(), nullptr, picture.pixels.data(), 0, nullptr) == 0)
        image.fail(path);
    return picture;
}

void writePng(const std::string& path, const PngPicture& picture)
{
    PngImage image;
    image->width = static_cast<png_uint_32>(picture.width);
    image->height = static_cast<png_uint_32>(picture.height);
    image->format = PNG_FORMAT_BGRA;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(*image.get());
    files::Bytes bytes(size);
    if (png_image_write_to_memory(
            image.get(), bytes.data(), &size, 0, picture.pixels.data(), 0, nullptr)
        == 0)
        image.fail(path);
    if (!files::write(path, std::span(bytes).first(size)))
        throw UserError(path + ": the file cannot be written; is there room and the right to?");
}

} // namespace kez::tools
