// SPDX-License-Identifier: MIT
#include "png_file.h"

#include "core/diagnostics.h"
#include "platform/files.h"

#include <png.h>

namespace kez::player {

namespace {

// The artwork is 640 × 480; anything far beyond it is a mistake, not a sheet.
constexpr png_uint_32 largestSide = 4096;

// libpng's simplified interface; its state is freed on every way out.
struct PngImage {
    png_image image {};

    PngImage() { image.version = PNG_IMAGE_VERSION; }

    ~PngImage() { png_image_free(&image); }

    PngImage(const PngImage&) = delete;
    PngImage& operator=(const PngImage&) = delete;
};

} // namespace

std::optional<Picture> readPng(const std::string& path)
{
    const auto bytes = files::read(path);
    if (!bytes) {
        debugPrint("%s cannot be read.", path.c_str());
        return std::nullopt;
    }
    PngImage png;
    if (png_image_begin_read_from_memory(&png.image, bytes->data(), bytes->size()) == 0
        || png.image.width > largestSide || png.image.height > largestSide) {
        debugPrint("%s is no picture for the desk: %s", path.c_str(), png.image.message);
        return std::nullopt;
    }
    png.image.format = PNG_FORMAT_BGRA;
    Picture picture
        = blankPicture(static_cast<int>(png.image.width), static_cast<int>(png.image.height), 0);
    if (png_image_finish_read(&png.image, nullptr, picture.pixels.data(), 0, nullptr) == 0) {
        debugPrint("%s is damaged: %s", path.c_str(), png.image.message);
        return std::nullopt;
    }
    return picture;
}

bool writePng(const std::string& path, const Picture& picture)
{
    files::Bytes rows;
    rows.reserve(picture.pixels.size() * 3);
    for (const std::uint32_t pixel : picture.pixels) {
        for (const int shift : { 16, 8, 0 })
            rows.push_back(static_cast<std::uint8_t>(pixel >> shift));
    }
    PngImage png;
    png.image.width = static_cast<png_uint_32>(picture.width);
    png.image.height = static_cast<png_uint_32>(picture.height);
    png.image.format = PNG_FORMAT_RGB;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(png.image);
    files::Bytes packed(size);
    if (png_image_write_to_memory(&png.image, packed.data(), &size, 0, rows.data(), 0, nullptr)
        == 0)
        return false;
    return files::write(path, std::span(packed).first(size));
}

} // namespace kez::player
