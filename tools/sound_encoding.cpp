// SPDX-License-Identifier: MIT
#include "sound_encoding.h"

#include "manifest.h"
#include "media/delta4.h"
#include "platform/files.h"
#include "progress.h"
#include "sound_delta_encoder.h"
#include "sound_levels.h"
#include "sound_record_builder.h"
#include "sound_wave.h"
#include "user_error.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>

namespace kez::tools {

namespace {

std::string recordName(const SoundJob& job)
{
    const std::string name
        = job.name.empty() ? std::filesystem::path(job.to).stem().string() : job.name;
    const bool printable = std::ranges::all_of(name, [](char c) { return c > ' ' && c <= '~'; });
    if (name.empty() || name.size() > longestRecordName || !printable)
        throw UserError("the sound's name \"" + name
            + "\" must be 1 to 39 ASCII characters without spaces; choose one with --name");
    return name;
}

std::vector<std::uint8_t> encodeSamples(
    const SoundJob& job, const std::vector<std::uint8_t>& samples)
{
    if (job.plain)
        return samples;
    Progress line(job.from + ": pass");
    return encodeDelta4(samples, [&](std::size_t done, std::size_t all) { line.at(done, all); });
}

std::string likeness(const SoundJob& job, std::span<const std::uint8_t> samples,
    std::span<const std::uint8_t> encoded)
{
    const std::string sizes = job.to + ": " + std::to_string(samples.size()) + " samples in "
        + std::to_string(encoded.size()) + " bytes";
    if (job.plain)
        return sizes;
    std::vector<std::uint8_t> heard(samples.size());
    expandDelta4(encoded, heard);
    if (std::ranges::equal(heard, samples))
        return sizes + ", without loss";
    char noise[64];
    std::snprintf(noise, sizeof noise, ", signal to noise %.1f dB", signalToNoise(samples, heard));
    return sizes + noise;
}

} // namespace

std::string encodeSound(const SoundJob& job)
{
    SoundParts parts;
    parts.name = recordName(job);
    const std::vector<std::uint8_t> samples = toBytes(readWave(job.from, job.rate));
    const std::vector<std::uint8_t> encoded = encodeSamples(job, samples);
    std::vector<std::uint8_t> track;
    if (job.sync)
        track = loudnessTrack(samples, job.rate, job.syncIntervalMs);
    parts.rate = static_cast<std::uint32_t>(job.rate);
    parts.sampleLength = static_cast<std::uint32_t>(samples.size());
    parts.encoding = job.plain ? plainEncoding : deltaEncoding;
    parts.encoded = encoded;
    parts.syncIntervalMs = static_cast<std::uint16_t>(job.syncIntervalMs);
    parts.syncValues = track;
    if (!files::write(job.to, buildSoundRecord(parts)))
        throw UserError(job.to + ": the file cannot be written; is there room, and the folder?");
    return likeness(job, samples, encoded);
}

} // namespace kez::tools
