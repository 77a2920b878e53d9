// SPDX-License-Identifier: MIT
#include "sound_wave.h"

#include "media/sound_record.h"
#include "platform/files.h"
#include "user_error.h"

#include <samplerate.h>
#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <numeric>

namespace kez::tools {

namespace {

struct CloseSound {
    void operator()(SNDFILE* file) const { sf_close(file); }
};

using OpenSound = std::unique_ptr<SNDFILE, CloseSound>;

std::vector<float> readOneChannel(const std::string& path, SNDFILE* file, const SF_INFO& format)
{
    constexpr sf_count_t framesAtOnce = 4096;
    const auto channels = static_cast<std::size_t>(format.channels);
    std::vector<float> frames(framesAtOnce * channels);
    std::vector<float> mono;
    while (const sf_count_t count = sf_readf_float(file, frames.data(), framesAtOnce)) {
        if (count < 0 || mono.size() > longestSample)
            throw UserError(path + ": the sound is too long; it may last some 50 minutes");
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
            const float* frame = &frames[i * channels];
            mono.push_back(
                std::accumulate(frame, frame + channels, 0.0f) / static_cast<float>(channels));
        }
    }
    return mono;
}

std::vector<float> resample(
    const std::string& path, const std::vector<float>& samples, int from, int to)
{
    const double ratio = static_cast<double>(to) / from;
    const double wanted = std::ceil(static_cast<double>(samples.size()) * ratio);
    if (src_is_valid_ratio(ratio) == 0)
        throw UserError(path + ": a rate of " + std::to_string(from)
            + " Hz is too far from the wanted one of " + std::to_string(to) + " Hz");
    if (wanted > longestSample)
        throw UserError(path + ": the sound is too long for this rate; choose a lower --rate");
    std::vector<float> result(static_cast<std::size_t>(wanted));
    SRC_DATA job {};
    job.data_in = samples.data();
    job.data_out = result.data();
    job.input_frames = static_cast<long>(samples.size());
    job.output_frames = static_cast<long>(result.size());
    job.src_ratio = ratio;
    if (const int fault = src_simple(&job, SRC_SINC_BEST_QUALITY, 1))
        throw UserError(path + ": " + src_strerror(fault));
    result.resize(static_cast<std::size_t>(job.output_frames_gen));
    return result;
}

/// A file in memory, for libsndfile to write into.
struct MemoryFile {
    std::vector<std::uint8_t> bytes;
    sf_count_t position = 0;
};

sf_count_t memorySize(void* user)
{
    return static_cast<sf_count_t>(static_cast<MemoryFile*>(user)->bytes.size());
}

sf_count_t memorySeek(sf_count_t offset, int whence, void* user)
{
    auto& file = *static_cast<MemoryFile*>(user);
    const sf_count_t base = whence == SEEK_CUR ? file.position
        : whence == SEEK_END                   ? memorySize(user)
                                               : 0;
    return file.position = base + offset;
}

sf_count_t memoryRead(void*, sf_count_t, void*)
{
    return 0;
}

sf_count_t memoryWrite(const void* from, sf_count_t count, void* user)
{
    auto& file = *static_cast<MemoryFile*>(user);
    const auto end = static_cast<std::size_t>(file.position + count);
    file.bytes.resize(std::max(file.bytes.size(), end));
    std::memcpy(&file.bytes[static_cast<std::size_t>(file.position)], from,
        static_cast<std::size_t>(count));
    file.position += count;
    return count;
}

sf_count_t memoryTell(void* user)
{
    return static_cast<MemoryFile*>(user)->position;
}

} // namespace

std::vector<float> readWave(const std::string& path, int rate)
{
    SF_INFO format {};
    const OpenSound file(sf_open(files::nativePath(path).c_str(), SFM_READ, &format));
    if (!file)
        throw UserError(path + ": " + sf_strerror(nullptr)
            + " Export it anew as a WAV file, or leave it out to keep the sound that was there");
    if (format.channels < 1 || format.samplerate < 1)
        throw UserError(path + ": the file names no channel or no rate");
    std::vector<float> samples = readOneChannel(path, file.get(), format);
    if (samples.empty())
        throw UserError(path + ": there are no samples in it; record it anew, or leave it out");
    if (!std::ranges::all_of(samples, [](float value) { return std::isfinite(value); }))
        throw UserError(path + ": some of its samples are not numbers");
    if (format.samplerate != rate)
        samples = resample(path, samples, format.samplerate, rate);
    if (samples.empty())
        throw UserError(path + ": it is too short for this rate");
    return samples;
}

void writeWave(const std::string& path, int rate, std::span<const std::uint8_t> samples)
{
    MemoryFile memory;
    SF_VIRTUAL_IO ways { memorySize, memorySeek, memoryRead, memoryWrite, memoryTell };
    SF_INFO format {};
    format.samplerate = rate;
    format.channels = 1;
    format.format = SF_FORMAT_WAV | SF_FORMAT_PCM_U8;
    OpenSound file(sf_open_virtual(&ways, SFM_WRITE, &format, &memory));
    if (!file)
        throw UserError(path + ": " + sf_strerror(nullptr));
    const auto size = static_cast<sf_count_t>(samples.size());
    const bool whole = sf_write_raw(file.get(), samples.data(), size) == size;
    file.reset();
    if (!whole || !files::write(path, memory.bytes))
        throw UserError(path + ": the file cannot be written; is there room, and the folder?");
}

} // namespace kez::tools
