// SPDX-License-Identifier: MIT
// Targa pictures both ways: in memory beside a plain copy of the pixels, through a file beside
// reading and writing the bare pixels, and beside SDL_image where it is installed.
#include "media/targa_decoder.h"
#include "media/targa_file.h"
#include "media/targa_header.h"
#include "media/targa_packets.h"
#include "platform/files.h"
#include "platform/temporary_folder.h"

#include <benchmark/benchmark.h>

#ifdef KEZ_BENCH_SDL_IMAGE
#include <SDL_image.h>
#endif

#include <array>
#include <cstring>
#include <random>

namespace kez::bench {

namespace {

using Bytes = std::vector<std::uint8_t>;

struct Sample {
    std::string name;
    int width;
    int height;
    Bytes pixels;

    [[nodiscard]] std::size_t rowBytes() const { return static_cast<std::size_t>(width) * 3; }
};

// Neighbours of a photograph are alike but seldom equal.
Sample photograph(int width, int height)
{
    Sample sample { "photo_" + std::to_string(width) + "x" + std::to_string(height), width, height,
        {} };
    std::mt19937 random(1);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            for (int channel = 0; channel < 3; ++channel)
                sample.pixels.push_back(static_cast<std::uint8_t>(
                    (x + y * channel) / 4 + static_cast<int>(random() % 9)));
    return sample;
}

// A drawing has lines and areas of one colour: runs of every length.
Sample drawing(int width, int height)
{
    Sample sample { "drawing_" + std::to_string(width) + "x" + std::to_string(height), width,
        height, {} };
    std::mt19937 random(2);
    std::array<std::uint8_t, 3> colour {};
    for (std::size_t left = 0, i = 0; i < static_cast<std::size_t>(width * height); ++i, --left) {
        if (left == 0) {
            left = random() % 4 == 0 ? 1 + random() % 60 : 1 + random() % 6;
            colour = { static_cast<std::uint8_t>(random() % 16 * 16),
                static_cast<std::uint8_t>(random() % 4 * 64), 77 };
        }
        sample.pixels.insert(sample.pixels.end(), colour.begin(), colour.end());
    }
    return sample;
}

Bytes targaOf(const Sample& sample, bool runLength)
{
    const test::TemporaryFolder folder;
    TargaFile file(nullptr);
    (void)file.write(
        (folder / "a.tga").c_str(), runLength, sample.width, sample.height, sample.pixels.data());
    return files::read(folder / "a.tga").value_or(Bytes());
}

void add(const std::string& name, std::size_t bytes, auto&& pass)
{
    benchmark::RegisterBenchmark(name.c_str(), [bytes, pass](benchmark::State& state) {
        for (auto each : state) {
            static_cast<void>(each);
            if (!pass()) {
                state.SkipWithError("gives other pixels");
                return;
            }
            benchmark::ClobberMemory();
        }
        state.SetBytesProcessed(
            static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(bytes));
    });
}

void addMemcpy(const std::string& name, const Sample& sample)
{
    const auto target = std::make_shared<Bytes>(sample.pixels.size());
    add(name + "/memcpy", sample.pixels.size(), [sample, target] {
        std::memcpy(target->data(), sample.pixels.data(), target->size());
        return true;
    });
}

bool decodes(const Bytes& file, const Sample& sample)
{
    TargaBytes source(file);
    TargaPicture picture;
    return decodeTarga(source, picture).empty()
        && std::memcmp(picture.pixels.data(), sample.pixels.data(), sample.pixels.size()) == 0;
}

void addReading(const Sample& sample, bool runLength)
{
    const std::string name
        = std::string("targa/read_") + (runLength ? "runs_" : "plain_") + sample.name;
    const Bytes file = targaOf(sample, runLength);
    if (!decodes(file, sample))
        std::abort();
    addMemcpy(name, sample);
    add(name + "/kez", sample.pixels.size(), [file] {
        TargaBytes source(file);
        TargaPicture picture;
        return decodeTarga(source, picture).empty();
    });
#ifdef KEZ_BENCH_SDL_IMAGE
    add(name + "/SDL_image", sample.pixels.size(), [file] {
        SDL_Surface* surface
            = IMG_LoadTGA_RW(SDL_RWFromConstMem(file.data(), static_cast<int>(file.size())));
        SDL_FreeSurface(surface);
        return surface != nullptr;
    });
#endif
}

void addPacking(const Sample& sample)
{
    const auto packets = std::make_shared<Bytes>(sample.rowBytes() * 2);
    add("targa/pack_" + sample.name + "/kez", sample.pixels.size(), [sample, packets] {
        std::size_t size = 0;
        for (std::size_t at = 0; at < sample.pixels.size(); at += sample.rowBytes())
            size += packTargaRow(std::span(sample.pixels).subspan(at, sample.rowBytes()), *packets);
        return size != 0;
    });
    addMemcpy("targa/pack_" + sample.name, sample);
}

// One folder for all of a program's files, gone with the program.
const test::TemporaryFolder& folder()
{
    static const test::TemporaryFolder only;
    return only;
}

void addFiles(const Sample& sample, bool runLength)
{
    const std::string kind = std::string(runLength ? "runs_" : "plain_") + sample.name;
    const std::string path = folder() / (kind + ".tga");
    const std::string barePath = folder() / (kind + ".raw");
    const auto writeTarga = [sample, path, runLength] {
        return TargaFile(path.c_str())
                   .write(
                       path.c_str(), runLength, sample.width, sample.height, sample.pixels.data())
            != nullptr;
    };
    const auto writeBare = [sample, barePath] { return files::write(barePath, sample.pixels); };
    if (!writeTarga() || !writeBare())
        std::abort();
    add("targa/file_write_" + kind + "/kez", sample.pixels.size(), writeTarga);
    add("targa/file_write_" + kind + "/bare_pixels", sample.pixels.size(), writeBare);
    add("targa/file_read_" + kind + "/kez", sample.pixels.size(),
        [path] { return TargaFile(path.c_str()).read(nullptr, nullptr) != nullptr; });
    const auto target = std::make_shared<Bytes>(sample.pixels.size());
    add("targa/file_read_" + kind + "/bare_pixels", sample.pixels.size(),
        [barePath, target] { return files::readAt(barePath, 0, *target); });
#ifdef KEZ_BENCH_SDL_IMAGE
    add("targa/file_read_" + kind + "/SDL_image", sample.pixels.size(), [path] {
        SDL_Surface* surface = IMG_Load(path.c_str());
        SDL_FreeSurface(surface);
        return surface != nullptr;
    });
#endif
}

const bool added = [] {
    const Sample photo = photograph(640, 480);
    const Sample small = photograph(160, 120);
    const Sample drawn = drawing(640, 480);
    addReading(photo, false);
    addReading(photo, true);
    addReading(drawn, true);
    addPacking(photo);
    addPacking(drawn);
    addFiles(photo, false);
    addFiles(photo, true);
    addFiles(small, false);
    addFiles(small, true);
    return true;
}();

} // namespace

} // namespace kez::bench
