// SPDX-License-Identifier: MIT
// The half of the JPEG files that writes.
#include "core/diagnostics.h"
#include "media/jpeg_error.h"
#include "media/jpeg_file.h"
#include "platform/files.h"

#include <array>
#include <memory>

namespace kez {

namespace {

constexpr std::size_t pieceBytes = 16 * 1024;

/// The encoder with all that its callbacks need; they get it back through `dest`.
struct Encoder {
    jpeg_destination_mgr destination {}; // first: libjpeg hands back a pointer to it
    jpeg_compress_struct info {};
    JpegErrors errors;
    files::Writer* file = nullptr;
    std::array<std::uint8_t, pieceBytes> piece;
};

Encoder& encoderOf(j_compress_ptr info)
{
    return *reinterpret_cast<Encoder*>(info->dest);
}

void startPiece(j_compress_ptr info)
{
    Encoder& encoder = encoderOf(info);
    encoder.destination.next_output_byte = encoder.piece.data();
    encoder.destination.free_in_buffer = pieceBytes;
}

void writePiece(j_compress_ptr info, std::size_t bytes)
{
    Encoder& encoder = encoderOf(info);
    if (!encoder.file->write({ encoder.piece.data(), bytes }))
        encoder.errors.giveUp("Not all of it could be written");
}

boolean writeFullPiece(j_compress_ptr info)
{
    writePiece(info, pieceBytes);
    startPiece(info);
    return TRUE;
}

void writeLastPiece(j_compress_ptr info)
{
    writePiece(info, pieceBytes - encoderOf(info).destination.free_in_buffer);
}

void start(Encoder& encoder, int width, int height)
{
    jpeg_compress_struct& info = encoder.info;
    jpeg_create_compress(&info);
    encoder.destination.init_destination = startPiece;
    encoder.destination.empty_output_buffer = writeFullPiece;
    encoder.destination.term_destination = writeLastPiece;
    info.dest = &encoder.destination;
    info.image_width = static_cast<JDIMENSION>(width);
    info.image_height = static_cast<JDIMENSION>(height);
    info.input_components = 3;
    info.in_color_space = JCS_EXT_BGR; // the same bytes come out as for exchanged colours
    jpeg_set_defaults(&info);
    jpeg_start_compress(&info, TRUE);
}

// Rows are taken from the end of the picture to its start, which the processor does not foresee.
void fetchAhead(const std::uint8_t* row, std::size_t bytes)
{
    constexpr std::size_t cacheLineBytes = 64;
    for (std::size_t at = 0; at < bytes; at += cacheLineBytes)
        __builtin_prefetch(row + at);
}

bool encode(Encoder& encoder, const std::uint8_t* pixels, int width, int height)
{
    if (setjmp(encoder.errors.escape) != 0)
        return false;
    start(encoder, width, height);
    jpeg_compress_struct& info = encoder.info;
    const std::size_t rowBytes = static_cast<std::size_t>(width) * 3;
    while (info.next_scanline < info.image_height) {
        const std::size_t rowFromBottom = info.image_height - 1 - info.next_scanline;
        auto* row = const_cast<JSAMPROW>(pixels + rowFromBottom * rowBytes);
        if (rowFromBottom > 0)
            fetchAhead(row - rowBytes, rowBytes);
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
    return true;
}

} // namespace

int writeJpeg(const char* path, const std::uint8_t* pixels, int width, int height)
{
    if (path == nullptr || pixels == nullptr || width < 1 || height < 1) {
        debugPrint("There is no picture to write to %.600s.", path != nullptr ? path : "a file");
        return 0;
    }
    files::Writer file(path);
    if (!file) {
        reportLastError("The JPEG file %.600s cannot be created.", path);
        return 0;
    }
    const auto encoder = std::make_unique<Encoder>();
    encoder->file = &file;
    encoder->errors.attachTo(reinterpret_cast<j_common_ptr>(&encoder->info));
    const bool encoded = encode(*encoder, pixels, width, height);
    jpeg_destroy_compress(&encoder->info);
    if (encoded && file.commit())
        return 1;
    reportLastError("The JPEG file %.600s cannot be written. %s", path, encoder->errors.text);
    return 0;
}

} // namespace kez
