// SPDX-License-Identifier: MIT
/// JPEG files as the library by itself makes them: a measure of ours, and what readers are fed
/// with.
#pragma once

#include "support/exif_block.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>
#include <vector>

#include <jpeglib.h>

namespace kez::test {

struct PlainJpeg {
    int components = 3;
    J_COLOR_SPACE colours = JCS_RGB;
    bool isProgressive = false;
    int orientation = 0; ///< 0: no EXIF block.
    int quality = 75;
    bool keepsColours = false; ///< Full colour resolution, so that small fields keep their colours.

    /// Rows from the top, `components` bytes a pixel.
    [[nodiscard]] std::string file(
        std::span<const std::uint8_t> pixels, int width, int height) const
    {
        jpeg_compress_struct info {};
        jpeg_error_mgr errors {};
        unsigned char* bytes = nullptr;
        unsigned long size = 0;
        info.err = jpeg_std_error(&errors);
        jpeg_create_compress(&info);
        jpeg_mem_dest(&info, &bytes, &size);
        info.image_width = static_cast<JDIMENSION>(width);
        info.image_height = static_cast<JDIMENSION>(height);
        describe(info);
        jpeg_start_compress(&info, TRUE);
        if (orientation != 0)
            writeOrientation(info);
        while (info.next_scanline < info.image_height) {
            auto* row = const_cast<JSAMPROW>(pixels.data()
                + std::size_t { info.next_scanline } * info.image_width
                    * static_cast<unsigned>(components));
            jpeg_write_scanlines(&info, &row, 1);
        }
        jpeg_finish_compress(&info);
        jpeg_destroy_compress(&info);
        std::string text(reinterpret_cast<char*>(bytes), size);
        std::free(bytes);
        return text;
    }

private:
    void describe(jpeg_compress_struct& info) const
    {
        info.input_components = components;
        info.in_color_space = colours;
        jpeg_set_defaults(&info);
        jpeg_set_quality(&info, quality, TRUE);
        if (isProgressive)
            jpeg_simple_progression(&info);
        if (keepsColours)
            info.comp_info[0].h_samp_factor = info.comp_info[0].v_samp_factor = 1;
    }

    void writeOrientation(jpeg_compress_struct& info) const
    {
        std::vector<std::uint8_t> block = exifBlock(orientation);
        block.insert(block.begin(), { 'E', 'x', 'i', 'f', 0, 0 });
        jpeg_write_marker(&info, JPEG_APP0 + 1, block.data(), static_cast<unsigned>(block.size()));
    }
};

} // namespace kez::test
