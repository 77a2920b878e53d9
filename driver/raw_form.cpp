// SPDX-License-Identifier: MIT
#include "raw_form.h"

#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <jpeglib.h>

namespace kez::driver {

namespace {

constexpr std::size_t lengthBytes = 4;
constexpr std::size_t mostBytes = MVI_RAW_BYTES - lengthBytes;
constexpr std::size_t rowBytes = std::size_t { 3 } * pictureWidth;

struct Errors {
    jpeg_error_mgr base {};
    std::jmp_buf escape {};
};

void onError(j_common_ptr info)
{
    std::longjmp(static_cast<Errors*>(info->client_data)->escape, 1);
}

void countWarning(j_common_ptr info, int level)
{
    if (level < 0)
        ++info->err->num_warnings;
}

template <class Info>
void watch(Info& info, Errors& errors)
{
    info.err = jpeg_std_error(&errors.base);
    info.client_data = &errors;
    errors.base.error_exit = onError;
    errors.base.emit_message = countWarning;
}

/// A compressed stream in memory that the compressor allocates.
struct Stream {
    unsigned char* bytes = nullptr;
    unsigned long count = 0;

    Stream() = default;

    ~Stream() { std::free(bytes); }

    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;
};

bool compress(Picture& picture, int quality, Stream& stream)
{
    jpeg_compress_struct info {};
    Errors errors;
    watch(info, errors);
    if (setjmp(errors.escape) != 0) {
        jpeg_destroy_compress(&info);
        return false;
    }
    jpeg_create_compress(&info);
    jpeg_mem_dest(&info, &stream.bytes, &stream.count);
    info.image_width = pictureWidth;
    info.image_height = pictureHeight;
    info.input_components = 3;
    info.in_color_space = JCS_RGB;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, quality, TRUE);
    info.optimize_coding = TRUE;
    info.comp_info[0].h_samp_factor = info.comp_info[0].v_samp_factor = 1;
    jpeg_start_compress(&info, TRUE);
    while (info.next_scanline < info.image_height) {
        JSAMPROW row = picture.data() + info.next_scanline * rowBytes;
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    return true;
}

std::size_t storedLength(std::span<const std::uint8_t, MVI_RAW_BYTES> raw)
{
    std::size_t length = 0;
    for (std::size_t i = lengthBytes; i > 0; --i)
        length = (length << 8) | raw[i - 1];
    return length;
}

// Rows come from the top with red first; the picture's lie from the bottom with blue first.
void putRow(const std::uint8_t* row, std::size_t y, std::uint8_t* picture)
{
    std::uint8_t* to = picture + (pictureHeight - 1 - y) * rowBytes;
    for (std::size_t x = 0; x < rowBytes; x += 3) {
        *to++ = row[x + 2];
        *to++ = row[x + 1];
        *to++ = row[x];
    }
}

bool decompress(std::span<const std::uint8_t> stream, std::uint8_t* picture)
{
    jpeg_decompress_struct info {};
    Errors errors;
    watch(info, errors);
    if (setjmp(errors.escape) != 0) {
        jpeg_destroy_decompress(&info);
        return false;
    }
    jpeg_create_decompress(&info);
    jpeg_mem_src(&info, stream.data(), static_cast<unsigned long>(stream.size()));
    jpeg_read_header(&info, TRUE);
    const bool fits = info.image_width == pictureWidth && info.image_height == pictureHeight
        && info.num_components == 3;
    info.out_color_space = JCS_RGB;
    if (fits)
        jpeg_start_decompress(&info);
    std::uint8_t line[rowBytes];
    while (fits && info.output_scanline < info.output_height) {
        const std::size_t y = info.output_scanline;
        JSAMPROW row = line;
        jpeg_read_scanlines(&info, &row, 1);
        putRow(line, y, picture);
    }
    const bool whole = fits && errors.base.num_warnings == 0;
    jpeg_destroy_decompress(&info);
    return whole;
}

} // namespace

RawPicture expose(const Picture& picture)
{
    RawPicture raw {};
    Picture pixels = picture; // the compressor wants rows that it could change
    for (int quality = 100; quality > 0; quality -= quality > 80 ? 2 : 10) {
        Stream stream;
        if (!compress(pixels, quality, stream) || stream.count > mostBytes)
            continue;
        for (std::size_t i = 0; i < lengthBytes; ++i)
            raw[i] = static_cast<std::uint8_t>(stream.count >> (8 * i));
        std::memcpy(raw.data() + lengthBytes, stream.bytes, stream.count);
        break;
    }
    return raw;
}

bool colourize(std::span<const std::uint8_t, MVI_RAW_BYTES> raw,
    std::span<std::uint8_t, MVI_PICTURE_BYTES> picture)
{
    const std::size_t length = storedLength(raw);
    return length > 0 && length <= mostBytes
        && decompress(raw.subspan<lengthBytes>().first(length), picture.data());
}

} // namespace kez::driver
