// SPDX-License-Identifier: MIT
#include "photograph_formats.h"
#include "picture_reducer.h"
#include "platform/exif_orientation.h"
#include "platform/files.h"

#include <array>
#include <csetjmp>
#include <cstdio>
#include <cstring>

#include <jerror.h>
#include <jpeglib.h>

namespace kez::driver {

namespace {

// A file with several scans is held whole, two bytes a sample: this is enough for 100 megapixels
// with the usual halved colours.
constexpr long mostMemory = 400L << 20;
// Honest files have a dozen; thousands of tiny scans would keep us busy for hours.
constexpr int mostScans = 200;
constexpr std::uint8_t endOfImage[] = { 0xFF, JPEG_EOI };
constexpr std::uint8_t exifMark[] = { 'E', 'x', 'i', 'f', 0, 0 };

/// The decoder with all that its callbacks need. The callbacks get it back through `client_data`.
struct Decoder {
    jpeg_decompress_struct info {};
    jpeg_error_mgr errors {};
    jpeg_source_mgr source {};
    jpeg_progress_mgr progress {};
    std::jmp_buf escape {};
    files::Reader* file = nullptr;
    std::array<std::uint8_t, 32 * 1024> buffer {};
    bool atEnd = false; // the file has ended
    bool missesData = false; // and the picture had not
    const char* problem = nullptr;
};

Decoder& decoderOf(j_common_ptr info)
{
    return *static_cast<Decoder*>(info->client_data);
}

Decoder& decoderOf(j_decompress_ptr info)
{
    return *static_cast<Decoder*>(info->client_data);
}

const char* describe(int code)
{
    return code == JERR_OUT_OF_MEMORY || code == JERR_NO_BACKING_STORE
        ? "needs more memory than there is for it"
        : "is damaged, or of a kind of JPEG that cannot be read";
}

[[noreturn]] void giveUp(Decoder& decoder, const char* problem)
{
    decoder.problem = problem;
    std::longjmp(decoder.escape, 1);
}

void onError(j_common_ptr info)
{
    Decoder& decoder = decoderOf(info);
    giveUp(decoder, decoder.atEnd ? "ends too early" : describe(info->err->msg_code));
}

void onMessage(j_common_ptr info, int level)
{
    if (level < 0 && info->err->msg_code == JWRN_HIT_MARKER)
        decoderOf(info).missesData = decoderOf(info).atEnd;
}

void onProgress(j_common_ptr info)
{
    if (decoderOf(info).info.input_scan_number > mostScans)
        giveUp(decoderOf(info), "has too many scans");
}

void beginSource(j_decompress_ptr) { }

// At the end of the file an end mark is made up: files without one are common and complete.
boolean fillBuffer(j_decompress_ptr info)
{
    Decoder& decoder = decoderOf(info);
    const std::size_t count = decoder.file->read(decoder.buffer);
    if (count > 0) {
        info->src->next_input_byte = decoder.buffer.data();
        info->src->bytes_in_buffer = count;
        return TRUE;
    }
    if (decoder.atEnd && decoder.missesData)
        giveUp(decoder, "ends too early");
    decoder.atEnd = true;
    info->src->next_input_byte = endOfImage;
    info->src->bytes_in_buffer = sizeof endOfImage;
    return TRUE;
}

void skipBytes(j_decompress_ptr info, long count)
{
    while (count > static_cast<long>(info->src->bytes_in_buffer)) {
        if (decoderOf(info).atEnd)
            giveUp(decoderOf(info), "ends too early");
        count -= static_cast<long>(info->src->bytes_in_buffer);
        fillBuffer(info);
    }
    info->src->next_input_byte += count;
    info->src->bytes_in_buffer -= static_cast<std::size_t>(count);
}

void endSource(j_decompress_ptr) { }

void setUp(Decoder& decoder, files::Reader& file)
{
    decoder.file = &file;
    decoder.info.err = jpeg_std_error(&decoder.errors);
    decoder.errors.error_exit = onError;
    decoder.errors.emit_message = onMessage;
    decoder.info.client_data = &decoder;
    decoder.source.init_source = beginSource;
    decoder.source.fill_input_buffer = fillBuffer;
    decoder.source.skip_input_data = skipBytes;
    decoder.source.resync_to_restart = jpeg_resync_to_restart;
    decoder.source.term_source = endSource;
    decoder.progress.progress_monitor = onProgress;
}

int orientationOf(const jpeg_decompress_struct& info)
{
    for (auto* marker = info.marker_list; marker != nullptr; marker = marker->next)
        if (marker->data_length > sizeof exifMark
            && std::memcmp(marker->data, exifMark, sizeof exifMark) == 0)
            return exifOrientation(
                { marker->data + sizeof exifMark, marker->data_length - sizeof exifMark });
    return 1;
}

// The decoder halves sizes cheaply, as long as twice the picture's size is left to average.
void chooseScale(jpeg_decompress_struct& info, int orientation)
{
    const Extent kept = keptExtent(
        static_cast<int>(info.image_width), static_cast<int>(info.image_height), orientation);
    const double shorter = std::min(kept.width, kept.height);
    unsigned denominator = 8;
    while (denominator > 1 && shorter / denominator < 2.0 * pictureHeight)
        denominator /= 2;
    info.scale_num = 1;
    info.scale_denom = denominator;
}

bool isInk(const jpeg_decompress_struct& info)
{
    return info.out_color_space == JCS_CMYK;
}

void chooseColours(jpeg_decompress_struct& info)
{
    const bool ink = info.jpeg_color_space == JCS_CMYK || info.jpeg_color_space == JCS_YCCK;
    info.out_color_space = ink ? JCS_CMYK : JCS_RGB;
}

// Four inks to three lights, in place. Files with the usual marker store them inverted.
void mixInks(std::span<std::uint8_t> row, bool inverted)
{
    std::uint8_t* to = row.data();
    for (std::size_t at = 0; at + 4 <= row.size(); at += 4) {
        const std::uint8_t* const inks = row.data() + at;
        const auto light = [inverted](std::uint8_t ink) { return inverted ? ink : 255 - ink; };
        const int black = light(inks[3]);
        const int mixed[] = { light(inks[0]), light(inks[1]), light(inks[2]) };
        for (const int colour : mixed)
            *to++ = static_cast<std::uint8_t>((colour * black + 127) / 255);
    }
}

/// What is built while decoding; outside the function that longjmp leaves, so that it is destroyed.
struct Work {
    std::optional<PictureReducer> reducer;
    std::vector<std::uint8_t> row;
};

void start(Decoder& decoder, Work& work)
{
    jpeg_decompress_struct& info = decoder.info;
    jpeg_create_decompress(&info);
    info.src = &decoder.source;
    info.progress = &decoder.progress;
    info.mem->max_memory_to_use = mostMemory;
    jpeg_save_markers(&info, JPEG_APP0 + 1, 0xFFFF);
    jpeg_read_header(&info, TRUE);
    if (std::uint64_t { info.image_width } * info.image_height > mostPixels)
        giveUp(decoder, "has more than 200 megapixels");
    const int orientation = orientationOf(info);
    chooseScale(info, orientation);
    chooseColours(info);
    jpeg_start_decompress(&info);
    work.reducer.emplace(
        static_cast<int>(info.output_width), static_cast<int>(info.output_height), orientation);
    work.row.resize(
        std::size_t { info.output_width } * static_cast<std::size_t>(info.output_components));
}

void readRows(Decoder& decoder, Work& work)
{
    jpeg_decompress_struct& info = decoder.info;
    while (info.output_scanline < info.output_height) {
        JSAMPROW row = work.row.data();
        jpeg_read_scanlines(&info, &row, 1);
        if (isInk(info))
            mixInks(work.row, info.saw_Adobe_marker != FALSE);
        work.reducer->addRow(work.row);
    }
    if (decoder.atEnd && decoder.missesData)
        giveUp(decoder, "ends too early");
}

bool decode(Decoder& decoder, Work& work)
{
    if (setjmp(decoder.escape) != 0)
        return false;
    start(decoder, work);
    readRows(decoder, work);
    return true;
}

} // namespace

std::optional<Picture> readJpeg(files::Reader& file, std::string& problem)
{
    const auto decoder = std::make_unique<Decoder>();
    setUp(*decoder, file);
    Work work;
    const bool decoded = decode(*decoder, work);
    jpeg_destroy_decompress(&decoder->info);
    if (decoded)
        return work.reducer->picture();
    problem = decoder->problem;
    return std::nullopt;
}

} // namespace kez::driver
