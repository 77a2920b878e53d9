// SPDX-License-Identifier: MIT
#include "picture_files.h"

#include <cstdio>
#include <cstdlib>

#include <jpeglib.h>
#include <png.h>

namespace kez::driver::test {

namespace {

// What JPEG calls inverted inks: each colour as it is, with full black ink left out.
std::vector<std::uint8_t> inks(const Photograph& photograph)
{
    std::vector<std::uint8_t> all;
    for (std::size_t i = 0; i < photograph.pixels.size(); ++i) {
        all.push_back(photograph.pixels[i]);
        if (i % 3 == 2)
            all.push_back(255);
    }
    return all;
}

std::vector<std::uint8_t> greys(const Photograph& photograph)
{
    std::vector<std::uint8_t> all;
    for (std::size_t i = 0; i < photograph.pixels.size(); i += 3)
        all.push_back(photograph.pixels[i]);
    return all;
}

void describe(jpeg_compress_struct& info, const JpegOptions& options)
{
    info.input_components = options.cmyk ? 4 : options.grey ? 1 : 3;
    info.in_color_space = options.cmyk ? JCS_CMYK : options.grey ? JCS_GRAYSCALE : JCS_RGB;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, options.quality, TRUE);
    if (options.progressive)
        jpeg_simple_progression(&info);
    // Full colour resolution, so that small coloured fields keep their colours.
    info.comp_info[0].h_samp_factor = info.comp_info[0].v_samp_factor = 1;
}

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

std::string jpegFile(const Photograph& photograph, const JpegOptions& options)
{
    jpeg_compress_struct info {};
    jpeg_error_mgr errors {};
    unsigned char* bytes = nullptr;
    unsigned long count = 0;
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    jpeg_mem_dest(&info, &bytes, &count);
    info.image_width = static_cast<JDIMENSION>(photograph.width);
    info.image_height = static_cast<JDIMENSION>(photograph.height);
    describe(info, options);
    jpeg_start_compress(&info, TRUE);
    if (options.orientation != 0) {
        std::vector<std::uint8_t> block = exifBlock(options.orientation);
        block.insert(block.begin(), { 'E', 'x', 'i', 'f', 0, 0 });
        jpeg_write_marker(&info, JPEG_APP0 + 1, block.data(), static_cast<unsigned>(block.size()));
    }
    std::vector<std::uint8_t> pixels = options.cmyk ? inks(photograph)
        : options.grey                              ? greys(photograph)
                                                    : photograph.pixels;
    const std::size_t rowBytes = pixels.size() / static_cast<std::size_t>(photograph.height);
    while (info.next_scanline < info.image_height) {
        JSAMPROW row = pixels.data() + info.next_scanline * rowBytes;
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    std::string file(reinterpret_cast<char*>(bytes), count);
    std::free(bytes);
    return file;
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
    std::vector<std::uint8_t> exif = exifBlock(options.orientation);
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

std::vector<std::uint8_t> exifBlock(int orientation, bool bigEndian)
{
    std::vector<std::uint8_t> block(2, bigEndian ? 'M' : 'I');
    const auto number = [&block, bigEndian](int count, unsigned value) {
        for (int i = 0; i < count; ++i)
            block.push_back(
                static_cast<std::uint8_t>(value >> 8 * (bigEndian ? count - 1 - i : i)));
    };
    number(2, 42);
    number(4, 8); // the directory follows at once
    number(2, 2);
    number(2, 0x010F); // the maker: a short text in the entry itself
    number(2, 2);
    number(4, 2);
    number(4, 0);
    number(2, 0x0112);
    number(2, 3);
    number(4, 1);
    number(2, static_cast<unsigned>(orientation));
    number(2, 0);
    number(4, 0); // no further directory
    return block;
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
