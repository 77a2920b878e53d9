// SPDX-License-Identifier: MIT
// The half of the JPEG files that reads.
#include "core/diagnostics.h"
#include "media/byte_block.h"
#include "media/jpeg_file.h"
#include "media/jpeg_scans.h"
#include "media/jpeg_source.h"
#include "platform/exif_orientation.h"
#include "platform/large_memory.h"

#include <cstdlib>
#include <cstring>
#include <memory>

namespace kez {

namespace {

// For files of several scans, which are held whole: two bytes a sample.
constexpr long mostMemory = 640L << 20;
constexpr std::uint8_t exifMark[] = { 'E', 'x', 'i', 'f', 0, 0 };
constexpr JDIMENSION rowsAtOnce = 16;

std::uint8_t* lastPicture = nullptr;
int lastOrientation = 1;

/// The decoder with all that its callbacks need, outside the frames that an error leaves.
struct Decoder {
    jpeg_decompress_struct info {};
    JpegErrors errors;
    JpegSource source;
    JpegScans scans;
    std::uint8_t* pixels = nullptr;
    int orientation = 1;
};

int orientationOf(const jpeg_decompress_struct& info)
{
    for (auto* marker = info.marker_list; marker != nullptr; marker = marker->next)
        if (marker->data_length > sizeof exifMark
            && std::memcmp(marker->data, exifMark, sizeof exifMark) == 0)
            return exifOrientation(
                { marker->data + sizeof exifMark, marker->data_length - sizeof exifMark });
    return 1;
}

void readHeader(Decoder& decoder)
{
    jpeg_decompress_struct& info = decoder.info;
    jpeg_save_markers(&info, JPEG_APP0 + 1, 0xFFFF);
    jpeg_read_header(&info, TRUE);
    if (info.jpeg_color_space != JCS_YCbCr)
        decoder.errors.giveUp("Its colours are not stored as YCbCr");
    if (std::int64_t { info.image_width } * info.image_height > mostJpegPixels)
        decoder.errors.giveUp("It has more than 100 megapixels");
    decoder.orientation = orientationOf(info);
    info.out_color_space = JCS_EXT_BGR; // the usual colours, exchanged
}

// The JPEG's top row is the picture's last one.
void readRows(Decoder& decoder)
{
    jpeg_decompress_struct& info = decoder.info;
    const std::size_t rowBytes = std::size_t { info.output_width } * 3;
    while (info.output_scanline < info.output_height) {
        JSAMPROW rows[rowsAtOnce];
        JDIMENSION count = 0;
        for (JDIMENSION y = info.output_scanline; y < info.output_height && count < rowsAtOnce; ++y)
            rows[count++] = decoder.pixels + (info.output_height - 1 - y) * rowBytes;
        jpeg_read_scanlines(&info, rows, count);
    }
    decoder.source.checkComplete(info);
}

bool decode(Decoder& decoder, files::Reader& file)
{
    if (setjmp(decoder.errors.escape) != 0)
        return false;
    jpeg_decompress_struct& info = decoder.info;
    jpeg_create_decompress(&info);
    decoder.source.attachTo(info, decoder.errors, file);
    decoder.scans.attachTo(info, decoder.errors);
    info.mem->max_memory_to_use = mostMemory;
    readHeader(decoder);
    jpeg_start_decompress(&info);
    decoder.pixels = static_cast<std::uint8_t*>(
        allocateLarge(std::size_t { info.output_width } * info.output_height * 3));
    if (decoder.pixels == nullptr)
        decoder.errors.giveUp("There is not enough memory for it");
    readRows(decoder);
    jpeg_finish_decompress(&info);
    return true;
}

} // namespace

std::uint8_t* readJpeg(const char* path, int* width, int* height)
{
    files::Reader file(path != nullptr ? path : "");
    if (!file) {
        reportLastError("The JPEG file %.600s cannot be opened.", path != nullptr ? path : "");
        return nullptr;
    }
    const auto decoder = std::make_unique<Decoder>();
    decoder->errors.attachTo(reinterpret_cast<j_common_ptr>(&decoder->info));
    const bool decoded = decode(*decoder, file);
    if (decoded) {
        *width = static_cast<int>(decoder->info.image_width);
        *height = static_cast<int>(decoder->info.image_height);
        lastPicture = decoder->pixels;
        lastOrientation = decoder->orientation;
    } else {
        std::free(decoder->pixels);
        debugPrint("The JPEG file %.500s cannot be read: %s.", path, decoder->errors.text);
    }
    jpeg_destroy_decompress(&decoder->info);
    return decoded ? lastPicture : nullptr;
}

void freeJpegPixels()
{
    std::free(lastPicture);
    lastPicture = nullptr;
}

int lastJpegOrientation()
{
    return lastOrientation;
}

} // namespace kez
