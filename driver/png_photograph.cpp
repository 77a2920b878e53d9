// SPDX-License-Identifier: MIT
#include "photograph_formats.h"
#include "picture_reducer.h"
#include "platform/exif_orientation.h"
#include "platform/files.h"

#include <cstring>

#include <png.h>

namespace kez::driver {

namespace {

// An interlaced picture is complete only after its last pass, and must be held until then.
constexpr std::uint64_t mostInterlacedPixels = 25'000'000;
constexpr std::size_t storedColours = 4; // red, green, blue, opacity

/// What is built while decoding; outside the function that longjmp leaves, so that it is destroyed.
struct Work {
    files::Reader& file;
    std::optional<PictureReducer> reducer {};
    std::vector<std::uint8_t> pixels {}; // one row, or all when they are interlaced
    std::vector<std::uint8_t> light {}; // one row without opacity
    const char* problem = "is damaged, or of a kind of PNG that cannot be read";
};

void readBytes(png_structp png, png_bytep into, std::size_t count)
{
    auto& work = *static_cast<Work*>(png_get_io_ptr(png));
    if (work.file.read({ into, count }) == count)
        return;
    work.problem = "ends too early";
    png_error(png, "end of file");
}

[[noreturn]] void onError(png_structp png, png_const_charp)
{
    png_longjmp(png, 1);
}

void onWarning(png_structp, png_const_charp) { }

[[noreturn]] void giveUp(png_structp png, Work& work, const char* problem)
{
    work.problem = problem;
    png_longjmp(png, 1);
}

int orientationOf(png_structp png, png_infop info)
{
    png_bytep exif = nullptr;
    png_uint_32 bytes = 0;
    if (png_get_eXIf_1(png, info, &bytes, &exif) == 0)
        return 1;
    return exifOrientation({ exif, bytes });
}

// Whatever the file holds comes as red, green, blue and opacity of a byte each.
void chooseColours(png_structp png)
{
    png_set_expand(png);
    png_set_scale_16(png);
    png_set_gray_to_rgb(png);
    png_set_add_alpha(png, 0xFF, PNG_FILLER_AFTER);
}

// Where the picture is transparent there is white paper behind it.
void addRow(Work& work, const std::uint8_t* pixels)
{
    std::uint8_t* to = work.light.data();
    for (std::size_t left = work.light.size() / 3; left > 0; --left, pixels += storedColours)
        for (std::size_t i = 0; i < 3; ++i) {
            const int opacity = pixels[3];
            *to++ = static_cast<std::uint8_t>(
                (pixels[i] * opacity + 255 * (255 - opacity) + 127) / 255);
        }
    work.reducer->addRow(work.light);
}

void start(png_structp png, png_infop info, Work& work)
{
    png_set_read_fn(png, &work, readBytes);
    png_read_info(png, info);
    const std::uint64_t width = png_get_image_width(png, info);
    const std::uint64_t height = png_get_image_height(png, info);
    const bool interlaced = png_get_interlace_type(png, info) != PNG_INTERLACE_NONE;
    if (width * height > mostPixels)
        giveUp(png, work, "has more than 200 megapixels");
    if (interlaced && width * height > mostInterlacedPixels)
        giveUp(png, work, "is interlaced and has more than 25 megapixels");
    chooseColours(png);
    png_set_interlace_handling(png);
    png_read_update_info(png, info);
    const std::size_t rowBytes = static_cast<std::size_t>(width) * storedColours;
    if (png_get_rowbytes(png, info) != rowBytes)
        giveUp(png, work, "has an unknown layout");
    work.pixels.resize(interlaced ? rowBytes * static_cast<std::size_t>(height) : rowBytes);
    work.light.resize(static_cast<std::size_t>(width) * 3);
    work.reducer.emplace(
        static_cast<int>(width), static_cast<int>(height), orientationOf(png, info));
}

void readRows(png_structp png, png_infop info, Work& work)
{
    const png_uint_32 height = png_get_image_height(png, info);
    if (png_get_interlace_type(png, info) == PNG_INTERLACE_NONE) {
        for (png_uint_32 y = 0; y < height; ++y) {
            png_read_row(png, work.pixels.data(), nullptr);
            addRow(work, work.pixels.data());
        }
        return;
    }
    const std::size_t rowBytes = work.pixels.size() / height;
    for (int pass = 0; pass < PNG_INTERLACE_ADAM7_PASSES; ++pass)
        for (png_uint_32 y = 0; y < height; ++y)
            png_read_row(png, work.pixels.data() + y * rowBytes, nullptr);
    for (png_uint_32 y = 0; y < height; ++y)
        addRow(work, work.pixels.data() + y * rowBytes);
}

bool decode(png_structp png, png_infop info, Work& work)
{
    if (setjmp(png_jmpbuf(png)) != 0)
        return false;
    start(png, info, work);
    readRows(png, info, work);
    return true;
}

} // namespace

std::optional<Picture> readPng(files::Reader& file, std::string& problem)
{
    Work work { file };
    png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, onError, onWarning);
    png_infop info = png == nullptr ? nullptr : png_create_info_struct(png);
    const bool decoded = info != nullptr && decode(png, info, work);
    png_destroy_read_struct(&png, &info, nullptr);
    if (decoded)
        return work.reducer->picture();
    problem = work.problem;
    return std::nullopt;
}

} // namespace kez::driver
