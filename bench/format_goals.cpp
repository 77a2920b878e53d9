// SPDX-License-Identifier: MIT
// The goals for formats and resampling: what the fastest exact loops reached when they were
// measured, with some room.
#include "goals.h"

namespace kez::bench {

namespace {

struct Goal {
    const char* name;
    const char* peer;
    double ratio;
};

constexpr Goal goals[] = {
    { "targa/read_plain_photo_640x480", "memcpy", 1.25 },
    { "targa/read_runs_photo_640x480", "memcpy", 1.5 },
    { "targa/read_runs_photo_640x480", "SDL_image", 0.5 },
    { "targa/read_runs_drawing_640x480", "memcpy", 5 },
    { "targa/pack_photo_640x480", "memcpy", 3.5 },
    { "targa/pack_drawing_640x480", "memcpy", 11 },
    { "targa/file_read_plain_photo_640x480", "bare_pixels", 1.15 },
    { "targa/file_read_plain_photo_640x480", "SDL_image", 0.3 },
    { "targa/file_read_plain_photo_160x120", "bare_pixels", 1.4 },
    { "targa/file_write_plain_photo_640x480", "bare_pixels", 1.3 },
    { "targa/file_write_runs_photo_640x480", "bare_pixels", 1.5 },
    { "jpeg/read_320x240", "library", 1.15 },
    { "jpeg/write_320x240", "library_as_safely", 1.15 },
    { "jpeg/read_2048x1536", "library", 1.10 },
    { "jpeg/write_2048x1536", "library_as_safely", 1.10 },
    { "resample/160x120_to_320x240", "libyuv", 0.7 },
    { "resample/160x120_to_320x240", "OpenCV", 0.35 },
    { "resample/320x240_to_160x120", "OpenCV", 1.2 },
    { "resample/320x240_to_160x120", "swscale", 0.1 },
    { "resample/250x188_to_320x240", "OpenCV", 1.1 },
    { "resample/250x188_to_320x240", "swscale", 0.3 },
    { "resample/2048x1536_to_320x240", "OpenCV", 0.4 },
    { "resample/2048x1536_to_320x240", "swscale", 0.45 },
    { "unpack/4MiB", "LZ4", 1.7 },
    { "unpack/4MiB", "libdeflate", 0.6 },
    { "unpack/4MiB", "zlib", 0.3 },
    { "unpack/content", "LZ4", 1.7 },
    { "sound/10s", "SDL2_ADPCM", 0.2 },
    { "sound/10s", "nibble_loop", 0.6 },
};

const bool areAdded = [] {
    for (const Goal& goal : goals)
        addGoal(goal.name, goal.peer, goal.ratio);
    return true;
}();

} // namespace

} // namespace kez::bench
