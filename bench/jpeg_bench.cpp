// SPDX-License-Identifier: MIT
// JPEG files both ways beside the library by itself on the same files, keeping one row at a time: a
// picture as it is exported, and photographs of 3 and 12 megapixels; and turning these upright.
#include "media/jpeg_file.h"
#include "media/turn_upright.h"
#include "opencv_peers.h"
#include "platform/temporary_folder.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include <jpeglib.h>
#include <unistd.h>

namespace kez::bench {

namespace {

using Bytes = std::vector<std::uint8_t>;

struct Size {
    int width;
    int height;
};

constexpr Size sizes[] = { { 320, 240 }, { 2048, 1536 }, { 4000, 3000 } };

// Soft areas with a little noise, as photographs have.
Bytes photograph(const Size& size)
{
    Bytes pixels;
    std::mt19937 random(1);
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x)
            for (int channel = 0; channel < 3; ++channel)
                pixels.push_back(static_cast<std::uint8_t>(
                    (x + y * channel) / 8 + static_cast<int>(random() % 5)));
    return pixels;
}

const test::TemporaryFolder& folder()
{
    static const test::TemporaryFolder only;
    return only;
}

// Written, or also safe on the disk, as ours is before it takes its place.
enum class Written { ToCache, ToDisk };

void encodeByLibrary(
    const std::string& path, const Bytes& pixels, const Size& size, Written written)
{
    jpeg_compress_struct info {};
    jpeg_error_mgr errors {};
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    std::FILE* const file = std::fopen(path.c_str(), "wb");
    jpeg_stdio_dest(&info, file);
    info.image_width = static_cast<JDIMENSION>(size.width);
    info.image_height = static_cast<JDIMENSION>(size.height);
    info.input_components = 3;
    info.in_color_space = JCS_RGB;
    jpeg_set_defaults(&info);
    jpeg_start_compress(&info, TRUE);
    while (info.next_scanline < info.image_height) {
        auto* row = const_cast<JSAMPROW>(
            pixels.data() + std::size_t { info.next_scanline } * info.image_width * 3);
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    if (written == Written::ToDisk && (std::fflush(file) != 0 || fdatasync(fileno(file)) != 0))
        std::abort();
    std::fclose(file);
}

void decodeByLibrary(const std::string& path)
{
    jpeg_decompress_struct info {};
    jpeg_error_mgr errors {};
    info.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&info);
    std::FILE* const file = std::fopen(path.c_str(), "rb");
    jpeg_stdio_src(&info, file);
    jpeg_read_header(&info, TRUE);
    jpeg_start_decompress(&info);
    Bytes row(std::size_t { info.output_width } * 3);
    while (info.output_scanline < info.output_height) {
        JSAMPROW rows = row.data();
        jpeg_read_scanlines(&info, &rows, 1);
    }
    jpeg_finish_decompress(&info);
    jpeg_destroy_decompress(&info);
    std::fclose(file);
}

void add(const std::string& name, auto&& pass)
{
    benchmark::RegisterBenchmark(name.c_str(), [pass](benchmark::State& state) {
        for (auto each : state) {
            static_cast<void>(each);
            pass();
            benchmark::ClobberMemory();
        }
    });
}

void addSize(const Size& size)
{
    const std::string name = std::to_string(size.width) + "x" + std::to_string(size.height);
    const std::string path = folder() / (name + ".jpg");
    const auto pixels = std::make_shared<Bytes>(photograph(size));
    if (writeJpeg(path.c_str(), pixels->data(), size.width, size.height) != 1)
        std::abort();
    const std::string otherPath = folder() / (name + "_library.jpg");
    add("jpeg/write_" + name + "/kez",
        [path, pixels, size] { writeJpeg(path.c_str(), pixels->data(), size.width, size.height); });
    add("jpeg/write_" + name + "/library",
        [otherPath, pixels, size] { encodeByLibrary(otherPath, *pixels, size, Written::ToCache); });
    add("jpeg/write_" + name + "/library_as_safely", [otherPath, pixels, size] {
        encodeByLibrary(otherPath + "~", *pixels, size, Written::ToDisk);
        std::rename((otherPath + "~").c_str(), otherPath.c_str());
    });
    add("jpeg/read_" + name + "/kez", [path] {
        int width = 0;
        int height = 0;
        benchmark::DoNotOptimize(readJpeg(path.c_str(), &width, &height));
        freeJpegPixels();
    });
    add("jpeg/read_" + name + "/library", [path] { decodeByLibrary(path); });
    // A copy of its own, for it is turned in place.
    const auto target = std::make_shared<Bytes>(*pixels);
    add("jpeg/turn_" + name + "/kez", [target, size] {
        Size turned = size;
        turnUpright(target->data(), turned.width, turned.height, 6);
    });
    add("jpeg/turn_" + name + "/OpenCV", [pixels, target, size] {
        turnByOpenCv(pixels->data(), { size.width, size.height }, target->data());
    });
    add("jpeg/turn_" + name + "/memcpy",
        [pixels, target] { std::memcpy(target->data(), pixels->data(), pixels->size()); });
}

const bool added = [] {
    for (const Size& size : sizes)
        addSize(size);
    return true;
}();

} // namespace

} // namespace kez::bench
