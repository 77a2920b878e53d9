// SPDX-License-Identifier: MIT
// The delta code beside libsndfile's IMA ADPCM on the same sound, and the guide's clips loaded one
// after the other.
#include "media/delta4.h"
#include "media/sound.h"
#include "media/sound_record.h"
#include "platform/files.h"

#include <benchmark/benchmark.h>
#include <sndfile.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

namespace kez::bench {

namespace {

constexpr int rate = 22050;
constexpr std::size_t length = 10 * rate;

// Codes as speech has them: mostly steps, now and then an escape or a run.
std::vector<std::uint8_t> deltaStream()
{
    std::vector<std::uint8_t> stream { 0, 1, 255, 2, 254, 4, 252, 7, 249, 12, 244, 20, 236, 40, 216,
        0 };
    std::mt19937 random(1);
    while (stream.size() < delta4TableSize + length / 2)
        stream.push_back(
            static_cast<std::uint8_t>(random() % 40 == 0 ? random() : random() % 15 * 17));
    return stream;
}

void expandDelta(benchmark::State& state)
{
    const std::vector<std::uint8_t> stream = deltaStream();
    std::vector<std::uint8_t> samples(length);
    for (auto pass : state) {
        static_cast<void>(pass);
        expandDelta4(stream, samples);
        benchmark::DoNotOptimize(samples.data());
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * length));
}

std::string adpcmFile()
{
    const std::string path = (std::filesystem::temp_directory_path() / "kez-bench.wav").string();
    SF_INFO info {};
    info.samplerate = rate;
    info.channels = 1;
    info.format = SF_FORMAT_WAV | SF_FORMAT_IMA_ADPCM;
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
    std::vector<short> samples(length);
    for (std::size_t i = 0; i < length; ++i)
        samples[i] = static_cast<short>(9000 * std::sin(static_cast<double>(i) * 0.1));
    sf_write_short(file, samples.data(), static_cast<sf_count_t>(length));
    sf_close(file);
    return path;
}

void expandAdpcm(benchmark::State& state)
{
    const std::string path = adpcmFile();
    SF_INFO info {};
    SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
    std::vector<short> samples(length);
    for (auto pass : state) {
        static_cast<void>(pass);
        sf_seek(file, 0, SEEK_SET);
        sf_read_short(file, samples.data(), static_cast<sf_count_t>(length));
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * length));
    sf_close(file);
    std::remove(path.c_str());
}

// Reading, checking and decoding, as `attach` does; without an output nothing is handed on.
void loadAllClips(benchmark::State& state)
{
    const auto former = std::filesystem::current_path();
    std::filesystem::current_path(KEZ_BENCH_CONTENT);
    std::size_t samples = 0;
    std::size_t most = 0;
    for (int i = 0; i < 29; ++i) {
        char path[32];
        std::snprintf(path, sizeof path, "audio\\kez%02d.wv5", i);
        const auto record = files::read(path);
        const auto header = record ? readSoundHeader(*record) : std::nullopt;
        if (!header) {
            state.SkipWithError("the voices have not been made");
            break;
        }
        samples += header->sampleLength;
        most = std::max<std::size_t>(most, header->sampleLength);
    }
    for (auto pass : state) {
        static_cast<void>(pass);
        for (int i = 0; i < 29; ++i) {
            char name[8];
            std::snprintf(name, sizeof name, "kez%02d", i);
            Sound clip(name);
            clip.attach();
            clip.detach();
        }
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * samples));
    state.counters["largest clip, bytes"] = static_cast<double>(most);
    std::filesystem::current_path(former);
}

BENCHMARK(expandDelta)->Name("sound/4-bit delta/kez");
BENCHMARK(expandAdpcm)->Name("sound/4-bit ima adpcm/libsndfile");
BENCHMARK(loadAllClips)->Name("sound/load 29 clips/kez")->Unit(benchmark::kMillisecond);

} // namespace

} // namespace kez::bench
