// SPDX-License-Identifier: MIT
// The goals: what the fastest exact loops reached when they were measured, with some room.
#include "goals.h"

namespace kez::bench {

namespace {

struct Goal {
    const char* name;
    const char* peer;
    double ratio;
};

constexpr Goal goals[] = {
    // drawing
    { "copy/640x480", "memcpy", 1.05 },
    { "copy/640x480", "SDL2", 0.70 },
    { "copy/80x54", "memcpy", 1.3 },
    { "copy/80x54", "SDL2", 0.8 },
    { "blend/drawn/640x480", "memcpy", 1.25 },
    { "blend/drawn/640x480", "SDL2", 0.15 },
    { "blend/drawn/640x480", "pixman", 0.55 },
    { "blend/soft/640x480", "memcpy", 2.4 },
    { "blend/soft/640x480", "SDL2", 0.10 },
    { "blend/soft/640x480", "libyuv", 0.85 },
    { "blend/drawn/300x200", "memcpy", 1.8 },
    { "blend/drawn/300x200", "SDL2", 0.17 },
    { "blend/drawn/300x200", "pixman", 0.65 },
    { "blend/soft/300x200", "memcpy", 3.3 },
    { "blend/soft/300x200", "SDL2", 0.11 },
    { "blend/soft/300x200", "libyuv", 0.9 },
    { "blend/drawn/80x54", "memcpy", 1.9 },
    { "blend/drawn/80x54", "SDL2", 0.20 },
    { "blend/drawn/80x54", "pixman", 0.7 },
    { "runs/opaque/640x480", "SDL2_RLE", 1.0 },
    { "runs/opaque/640x480", "memcpy", 1.4 },
    { "runs/opaque/300x200", "SDL2_RLE", 0.95 },
    { "runs/opaque/300x200", "memcpy", 1.8 },
    { "runs/opaque/80x54", "SDL2_RLE", 0.85 },
    { "runs/opacity/300x200", "SDL2_RLE", 0.6 },
    { "runs/opacity/300x200", "table", 0.35 },
    { "runs/opacity/80x54", "SDL2_RLE", 0.55 },
    { "runs/opacity/80x54", "table", 0.4 },
    { "palette/opaque/640x480", "SDL2", 0.75 },
    { "palette/opaque/300x200", "SDL2", 0.85 },
    { "palette/opacity/300x200", "table", 0.35 },
    { "palette/opacity/300x200", "memcpy", 3.2 },
    { "scaled/320x240_to_640x480", "memcpy", 1.2 },
    { "scaled/320x240_to_640x480", "SDL2", 0.30 },
    { "scaled/320x240_to_640x480", "libyuv", 1.2 },
    { "scaled/300x200_to_437x291", "memcpy", 1.3 },
    { "scaled/300x200_to_437x291", "SDL2", 0.30 },
    { "scaled/640x480_to_300x225", "SDL2", 0.9 },
    { "scaled/640x480_to_300x225", "libyuv", 0.9 },
    { "present/565", "memcpy", 1.65 },
    { "present/565", "canvas_memcpy", 0.8 },
    { "present/565", "SDL2", 0.10 },
    { "present/565", "pixman", 0.5 },
    { "present/555", "memcpy", 1.65 },
    { "present/555", "canvas_memcpy", 0.8 },
    { "present/555", "SDL2", 0.10 },
    { "present/blueHigh", "memcpy", 3.2 },
    { "present/blueHigh", "SDL2", 0.06 },
    { "present/24bits", "memcpy", 1.4 },
    { "present/24bits", "libyuv", 1.1 },
    { "frame/camera/16", "SDL2", 0.16 },
    { "frame/camera/24", "SDL2", 0.16 },
    { "frame/camera/32", "SDL2", 0.16 },
    { "quarterTurn/640x480", "memcpy", 1.8 },
    { "quarterTurn/300x200", "memcpy", 1.5 },
    { "quarterTurn/300x200", "libyuv", 0.7 },
    { "fill/opaque/640x480", "memcpy", 0.55 },
    { "fill/opaque/640x480", "libyuv", 1.05 },
    { "fill/opacity/300x200", "memcpy", 2.3 },
    { "fill/opacity/300x200", "pixman", 0.65 },

    // formats and resampling
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
    for (const char* const depth : { "16", "24", "32" })
        addTimeGoal(std::string("frame/camera/") + depth, 100);
    return true;
}();

} // namespace

} // namespace kez::bench
