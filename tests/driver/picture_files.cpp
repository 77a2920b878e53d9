// SPDX-License-Identifier: MIT
#include "picture_files.h"

#include <png.h>

#include <algorithm>

namespace kez::driver::test {

namespace {

void appendBytes(png_structp png, png_bytep bytes, std::size_t count)
{
    auto& file = *static_cast<std::string*>(png_get_io_ptr(png));
    file.append(reinterpret_cast<const char*>(bytes), count);
}

} // namespace

Photograph::Photograph(int w, int h, const std::function<Colour(int x, int y)>& colourAt)
    : width(w)
    , height(h)
{
    for (int y = 0; y < h; ++y)
        for (int x = 0; x < w; ++x) {
            const Colour colour = colourAt(x, y);
            for (const int part : { colour.red, colour.green, colour.blue })
                pixels.push_back(static_cast<std::uint8_t>(part));
        }
}

std::string jpegFile(const Photograph& photograph, kez::test::PlainJpeg form)
{
    form.quality = 95;
    form.keepsColours = true;
    std::vector<std::uint8_t> pixels;
    for (std::size_t i = 0; i < photograph.pixels.size(); i += 3) {
        const std::uint8_t* const pixel = &photograph.pixels[i];
        pixels.insert(pixels.end(), pixel, pixel + std::min(form.components, 3));
        if (form.components == 4) // inverted inks: each colour as it is, with no black ink
            pixels.push_back(255);
    }
    return form.file(pixels, photograph.width, photograph.height);
}

std::string pngFile(const Photograph& photograph, const PngOptions& options)
{
    std::string file;
    png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(png);
    png_set_write_fn(png, &file, appendBytes, nullptr);
    png_set_IHDR(png, info, static_cast<png_uint_32>(photograph.width),
        static_cast<png_uint_32>(photograph.height), 8,
        options.opacity < 0 ? PNG_COLOR_TYPE_RGB : PNG_COLOR_TYPE_RGBA,
        options.interlaced ? PNG_INTERLACE_ADAM7 : PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
        PNG_FILTER_TYPE_DEFAULT);
    std::vector<std::uint8_t> exif = kez::test::exifBlock(options.orientation);
    if (options.orientation != 0)
        png_set_eXIf_1(png, info, static_cast<png_uint_32>(exif.size()), exif.data());
    std::vector<std::uint8_t> pixels;
    std::vector<png_bytep> rows;
    for (std::size_t i = 0; i < photograph.pixels.size(); ++i) {
        pixels.push_back(photograph.pixels[i]);
        if (options.opacity >= 0 && i % 3 == 2)
            pixels.push_back(static_cast<std::uint8_t>(options.opacity));
    }
    const std::size_t rowBytes = pixels.size() / static_cast<std::size_t>(photograph.height);
    for (int y = 0; y < photograph.height; ++y)
        rows.push_back(pixels.data() + static_cast<std::size_t>(y) * rowBytes);
    png_set_rows(png, info, rows.data());
    png_write_png(png, info, PNG_TRANSFORM_IDENTITY, nullptr);
    png_destroy_write_struct(&png, &info);
    return file;
}

Colour colourOf(const Picture& picture, int x, int y)
{
    const auto at = static_cast<std::size_t>(y * pictureWidth + x) * 3;
    return { picture[at], picture[at + 1], picture[at + 2] };
}

Picture plainPicture(int red, int green, int blue)
{
    Picture picture;
    for (std::size_t i = 0; i < picture.size(); i += 3) {
        picture[i] = static_cast<std::uint8_t>(red);
        picture[i + 1] = static_cast<std::uint8_t>(green);
        picture[i + 2] = static_cast<std::uint8_t>(blue);
    }
    return picture;
}

} // namespace kez::driver::test
