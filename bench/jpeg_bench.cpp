// SPDX-License-Identifier: MIT
// JPEG files both ways beside the library by itself, which keeps one row at a time and writes to
// memory: a picture as it is exported, and a photograph of 12 megapixels; and turning it upright.
#include "media/jpeg_file.h"
#include "media/turn_upright.h"
#include "platform/files.h"
#include "platform/temporary_folder.h"
#include "support/plain_jpeg.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <random>
#include <string>
#include <vector>

#include <jpeglib.h>

namespace kez::bench {

namespace {

using Bytes = std::vector<std::uint8_t>;

struct Size {
    int width;
    int height;
};

constexpr Size sizes[] = { { 320, 240 }, { 4000, 3000 } };

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

void decodeByLibrary(const Bytes& file)
{
    jpeg_decompress_struct info {};
    jpeg_error_mgr errors {};
    info.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&info);
    jpeg_mem_src(&info, file.data(), static_cast<unsigned long>(file.size()));
    jpeg_read_header(&info, TRUE);
    jpeg_start_decompress(&info);
    Bytes row(std::size_t { info.output_width } * 3);
    while (info.output_scanline < info.output_height) {
        JSAMPROW rows = row.data();
        jpeg_read_scanlines(&info, &rows, 1);
    }
    jpeg_finish_decompress(&info);
    jpeg_destroy_decompress(&info);
}

void add(const std::string& name, auto&& pass)
{
    benchmark::RegisterBenchmark(name.c_str(), [pass](benchmark::State& state) {
        for (auto each : state) {
            static_cast<void>(each);
            pass();
            benchmark::ClobberMemory();
        }
    })->Unit(benchmark::kMillisecond);
}

void addSize(const Size& size)
{
    const std::string name = std::to_string(size.width) + "x" + std::to_string(size.height);
    const std::string path = folder() / (name + ".jpg");
    const auto pixels = std::make_shared<Bytes>(photograph(size));
    if (writeJpeg(path.c_str(), pixels->data(), size.width, size.height) != 1)
        std::abort();
    const auto file = std::make_shared<Bytes>(files::read(path).value_or(Bytes()));
    add("jpeg write " + name + "/kez",
        [path, pixels, size] { writeJpeg(path.c_str(), pixels->data(), size.width, size.height); });
    add("jpeg write " + name + "/library", [pixels, size] {
        static_cast<void>(test::PlainJpeg().file(*pixels, size.width, size.height));
    });
    add("jpeg read " + name + "/kez", [path] {
        int width = 0;
        int height = 0;
        benchmark::DoNotOptimize(readJpeg(path.c_str(), &width, &height));
        freeJpegPixels();
    });
    add("jpeg read " + name + "/library", [file] { decodeByLibrary(*file); });
    add("jpeg turn " + name + "/kez", [pixels, size] {
        Size turned = size;
        turnUpright(pixels->data(), turned.width, turned.height, 6);
    });
}

const bool added = [] {
    for (const Size& size : sizes)
        addSize(size);
    return true;
}();

} // namespace

} // namespace kez::bench
