// SPDX-License-Identifier: MIT
// The delta code beside SDL2's and libsndfile's IMA ADPCM, ten seconds each, and the guide's clips
// loaded one after the other.
#include "media/delta4.h"
#include "media/plain_delta4.h"
#include "media/sound.h"
#include "media/sound_record.h"
#include "platform/files.h"

#include <SDL.h>
#include <benchmark/benchmark.h>
#include <sndfile.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

namespace kez::bench {

namespace {

constexpr int rate = 22050;
constexpr std::size_t length = 10 * rate;

using Bytes = std::vector<std::uint8_t>;

// The song, of which ten seconds are decoded.
Bytes deltaStream()
{
    const auto record = files::read(std::string(KEZ_BENCH_CONTENT) + "/audio/kezsong.wv5");
    const auto header = record ? readSoundHeader(*record) : std::nullopt;
    if (!header || header->sampleLength < length)
        return {};
    const auto stream = soundBlock(*record, *header);
    return stream ? Bytes(stream->begin(), stream->end()) : Bytes();
}

void expandDelta(benchmark::State& state)
{
    const Bytes stream = deltaStream();
    Bytes samples(length);
    Bytes expected(length);
    if (stream.empty()) {
        state.SkipWithError("the song has not been made");
        return;
    }
    expandDelta4(stream, samples);
    test::plainlyExpandDelta4(stream, expected);
    if (samples != expected) {
        state.SkipWithError("does not give what the rule says");
        return;
    }
    for (auto pass : state) {
        static_cast<void>(pass);
        expandDelta4(stream, samples);
        benchmark::ClobberMemory();
    }
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

void expandAdpcmBySdl(benchmark::State& state)
{
    const std::string path = adpcmFile();
    const Bytes file = files::read(path).value_or(Bytes());
    for (auto pass : state) {
        static_cast<void>(pass);
        SDL_AudioSpec form;
        Uint8* samples = nullptr;
        Uint32 bytes = 0;
        if (SDL_LoadWAV_RW(SDL_RWFromConstMem(file.data(), static_cast<int>(file.size())), 1, &form,
                &samples, &bytes)
            == nullptr)
            state.SkipWithError(SDL_GetError());
        SDL_FreeWAV(samples);
    }
    std::remove(path.c_str());
}

// Code by code, as it is stated.
void expandNibbles(benchmark::State& state)
{
    const Bytes stream = deltaStream();
    Bytes samples(length);
    if (stream.empty())
        state.SkipWithError("the song has not been made");
    for (auto pass : state) {
        static_cast<void>(pass);
        test::plainlyExpandDelta4(stream, samples);
        benchmark::ClobberMemory();
    }
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

BENCHMARK(expandDelta)->Name("sound/10s/kez");
BENCHMARK(expandNibbles)->Name("sound/10s/nibble_loop");
BENCHMARK(expandAdpcmBySdl)->Name("sound/10s/SDL2_ADPCM");
BENCHMARK(expandAdpcm)->Name("sound/10s/libsndfile_ADPCM");
BENCHMARK(loadAllClips)->Name("sound/load_29_clips/kez");

} // namespace

} // namespace kez::bench
