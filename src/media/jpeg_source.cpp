// SPDX-License-Identifier: MIT
#include "media/jpeg_source.h"

#include <jerror.h>

namespace kez {

namespace {

constexpr std::uint8_t endOfImage[] = { 0xFF, JPEG_EOI };
constexpr const char* endsTooEarly = "It ends too early";

JpegSource& sourceOf(j_decompress_ptr info)
{
    return *reinterpret_cast<JpegSource*>(info->src);
}

void begin(j_decompress_ptr) { }

void end(j_decompress_ptr) { }

boolean fill(j_decompress_ptr info)
{
    JpegSource& source = sourceOf(info);
    const std::size_t count = source.file->read(source.piece);
    if (count > 0) {
        info->src->next_input_byte = source.piece.data();
        info->src->bytes_in_buffer = count;
        return TRUE;
    }
    if (source.atEnd)
        source.errors->giveUp(endsTooEarly);
    source.atEnd = true;
    info->src->next_input_byte = endOfImage;
    info->src->bytes_in_buffer = sizeof endOfImage;
    return TRUE;
}

void skip(j_decompress_ptr info, long count)
{
    while (count > static_cast<long>(info->src->bytes_in_buffer)) {
        if (sourceOf(info).atEnd)
            sourceOf(info).errors->giveUp(endsTooEarly);
        count -= static_cast<long>(info->src->bytes_in_buffer);
        fill(info);
    }
    if (count > 0) {
        info->src->next_input_byte += count;
        info->src->bytes_in_buffer -= static_cast<std::size_t>(count);
    }
}

// The decoder makes up what it misses and only warns.
void noteMissingData(j_common_ptr info, int level)
{
    JpegSource& source = sourceOf(reinterpret_cast<j_decompress_ptr>(info));
    if (level < 0 && source.atEnd && info->err->msg_code == JWRN_HIT_MARKER)
        source.missesData = true;
}

} // namespace

void JpegSource::attachTo(
    jpeg_decompress_struct& info, JpegErrors& errorsOfInfo, files::Reader& toRead)
{
    errors = &errorsOfInfo;
    file = &toRead;
    errors->manager.emit_message = noteMissingData;
    manager.init_source = begin;
    manager.fill_input_buffer = fill;
    manager.skip_input_data = skip;
    manager.resync_to_restart = jpeg_resync_to_restart;
    manager.term_source = end;
    info.src = &manager;
}

void JpegSource::checkComplete(jpeg_decompress_struct& info)
{
    // A missing scan does not show: only the end mark tells that it was the last one.
    if (missesData || (atEnd && jpeg_has_multiple_scans(&info) != FALSE))
        errors->giveUp(endsTooEarly);
}

} // namespace kez
