// SPDX-License-Identifier: MIT
/// A file as libjpeg reads it. Behind the file's end an end mark is made up once, because files
/// without one are common and complete; a decoder that asks for more, or that meets the mark while
/// it still misses parts of the picture, gives up: the file ends too early. A file of several scans
/// needs its own mark.
#pragma once

#include "media/jpeg_error.h"
#include "platform/files.h"

#include <array>

namespace kez {

struct JpegSource {
    /// Makes the decoder, whose errors are attached, read the file.
    void attachTo(jpeg_decompress_struct& info, JpegErrors& errorsOfInfo, files::Reader& toRead);

    void checkComplete(jpeg_decompress_struct& info); ///< Gives up when the picture was not.

    jpeg_source_mgr manager {}; // first: libjpeg hands back a pointer to it
    JpegErrors* errors = nullptr;
    files::Reader* file = nullptr;
    std::array<std::uint8_t, 32 * 1024> piece;
    bool atEnd = false;
    bool missesData = false;
};

} // namespace kez
