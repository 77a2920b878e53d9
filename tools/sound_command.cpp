// SPDX-License-Identifier: MIT
/// kez sound: sounds into records and back.
#include "commands.h"
#include "media/delta4.h"
#include "platform/files.h"
#include "progress.h"
#include "sound_delta_encoder.h"
#include "sound_levels.h"
#include "sound_record_builder.h"
#include "sound_wave.h"
#include "user_error.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <memory>

namespace kez::tools {

namespace {

constexpr std::uint8_t silence = 128;

struct Encoding {
    std::string from;
    std::string to;
    std::string name;
    int rate = 22050;
    int syncIntervalMs = 100;
    bool plain = false;
    bool sync = false;
};

std::string recordName(const Encoding& job)
{
    constexpr std::size_t longest = 39;
    const std::string name
        = job.name.empty() ? std::filesystem::path(job.to).stem().string() : job.name;
    const bool printable = std::ranges::all_of(name, [](char c) { return c > ' ' && c <= '~'; });
    if (name.empty() || name.size() > longest || !printable)
        throw UserError("the sound's name \"" + name
            + "\" must be 1 to 39 ASCII characters without spaces; choose one with --name");
    return name;
}

std::vector<std::uint8_t> encodeSamples(
    const Encoding& job, const std::vector<std::uint8_t>& samples)
{
    if (job.plain)
        return samples;
    Progress line(job.from + ": pass");
    return encodeDelta4(samples, [&](std::size_t done, std::size_t all) { line.at(done, all); });
}

void reportCode(const Encoding& job, std::span<const std::uint8_t> samples,
    std::span<const std::uint8_t> encoded)
{
    std::printf("%s: %zu samples in %zu bytes", job.to.c_str(), samples.size(), encoded.size());
    if (!job.plain) {
        std::vector<std::uint8_t> heard(samples.size());
        expandDelta4(encoded, heard);
        if (std::ranges::equal(heard, samples))
            std::printf(", without loss");
        else
            std::printf(", signal to noise %.1f dB", signalToNoise(samples, heard));
    }
    std::printf("\n");
}

void encode(const Encoding& job)
{
    SoundParts parts;
    parts.name = recordName(job);
    const std::vector<float> wave = readWave(job.from, job.rate);
    const std::vector<std::uint8_t> samples = toBytes(wave);
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
    reportCode(job, samples, encoded);
}

/// A record file as the module would play it.
struct LoadedSound {
    files::Bytes record;
    SoundHeader header;
    std::size_t packedBytes = 0;
    std::vector<std::uint8_t> samples;
};

std::string headerFault(const SoundHeader& header)
{
    if (header.bitsPerSample != 8 || header.channels != 1)
        return "only sounds of 8 bits and one channel are played; this one has "
            + std::to_string(header.bitsPerSample) + " bits and " + std::to_string(header.channels)
            + " channels";
    if (header.samplesPerSecond == 0 || header.samplesPerSecond > 1'000'000)
        return "a rate of " + std::to_string(header.samplesPerSecond) + " Hz cannot be";
    if (header.sampleLength > longestSample)
        return "a length of " + std::to_string(header.sampleLength) + " samples cannot be";
    if (header.encoding != plainEncoding && header.encoding != deltaEncoding)
        return "encoding " + std::to_string(header.encoding) + " is unknown";
    return {};
}

std::vector<std::uint8_t> decodeSamples(
    const std::string& path, const SoundHeader& header, std::span<const std::uint8_t> encoded)
{
    std::vector<std::uint8_t> samples(header.sampleLength, silence);
    if (header.encoding == deltaEncoding)
        expandDelta4(encoded, samples);
    else if (encoded.size() < samples.size())
        throw UserError(path + ": damaged: there are fewer samples than the header says");
    else
        std::copy_n(encoded.begin(), samples.size(), samples.begin());
    return samples;
}

LoadedSound loadSound(const std::string& path)
{
    auto bytes = files::read(path);
    if (!bytes)
        throw UserError(path + ": the file cannot be read; is the name spelt right?");
    const auto header = readSoundHeader(*bytes);
    if (!header)
        throw UserError(path + ": it is no sound record; it is shorter than the header of one");
    if (const std::string fault = headerFault(*header); !fault.empty())
        throw UserError(path + ": " + fault);
    const auto encoded = soundBlock(*bytes, *header);
    if (!encoded)
        throw UserError(path + ": damaged: the samples do not lie within the file");
    if (header->syncOffset != 0 && !soundSyncTrack(*bytes, *header))
        throw UserError(path + ": damaged: the sync track does not lie within the file");
    std::vector<std::uint8_t> samples = decodeSamples(path, *header, *encoded);
    return { std::move(*bytes), *header, encoded->size(), std::move(samples) };
}

void decode(const std::string& from, const std::string& to)
{
    const LoadedSound sound = loadSound(from);
    writeWave(to, static_cast<int>(sound.header.samplesPerSecond), sound.samples);
}

std::string nameOf(const files::Bytes& record)
{
    std::string name;
    for (std::size_t i = 4; i < 44 && record[i] != 0; ++i)
        name += record[i] < ' ' || record[i] > '~' ? '?' : static_cast<char>(record[i]);
    return name;
}

void inform(const std::string& path)
{
    const LoadedSound sound = loadSound(path);
    const SoundHeader& header = sound.header;
    const auto length = sound.samples.size();
    std::printf("name      %s\n", nameOf(sound.record).c_str());
    std::printf("length    %.3f s, %zu samples at %u Hz\n",
        static_cast<double>(length) / header.samplesPerSecond, length, header.samplesPerSecond);
    std::printf("encoding  %s, %zu bytes, %.2f bits a sample\n",
        header.encoding == plainEncoding ? "plain" : "4-bit delta", sound.packedBytes,
        length == 0 ? 0 : 8 * static_cast<double>(sound.packedBytes) / static_cast<double>(length));
    std::printf(
        "level     %.1f dB, peak %d of 127\n", rmsDecibels(sound.samples), peakOf(sound.samples));
    if (const auto sync = soundSyncTrack(sound.record, header))
        std::printf("sync      %zu values, one every %u ms\n", sync->values.size(),
            static_cast<unsigned>(sync->intervalMs));
}

void addEncode(CLI::App& command)
{
    const auto job = std::make_shared<Encoding>();
    CLI::App* encoding = command.add_subcommand("encode",
        "Turn a sound of any rate and number of channels into a record of 8 bits, one channel");
    encoding->add_option("in", job->from, "A WAV file (or FLAC, AIFF, Ogg ...)")->required();
    encoding->add_option("out", job->to, "The .wv5 file to write")->required();
    encoding->add_option("--rate", job->rate, "Samples a second (22050)")
        ->check(CLI::Range(1000, 192000));
    encoding->add_option("--name", job->name, "The record's name (the file's, without ending)");
    encoding->add_flag("--plain", job->plain, "Keep whole bytes; the delta code halves them");
    CLI::Option* sync
        = encoding->add_flag("--sync", job->sync, "Add a sync track that follows the loudness");
    encoding->add_option("--sync-interval", job->syncIntervalMs, "Milliseconds a value (100)")
        ->check(CLI::Range(1, 65535))
        ->needs(sync);
    encoding->callback([job] { encode(*job); });
}

} // namespace

void addSoundCommand(CLI::App& app)
{
    CLI::App* command = app.add_subcommand("sound", "Turn sounds into records and back");
    command->require_subcommand(1);
    addEncode(*command);

    const auto paths = std::make_shared<std::pair<std::string, std::string>>();
    CLI::App* decoding = command->add_subcommand("decode", "Turn a record into a WAV file");
    decoding->add_option("in", paths->first, "The .wv5 file")->required();
    decoding->add_option("out", paths->second, "The WAV file to write")->required();
    decoding->callback([paths] { decode(paths->first, paths->second); });

    const auto path = std::make_shared<std::string>();
    CLI::App* informing = command->add_subcommand(
        "info", "Show a record's name, length, encoding, loudness and sync track");
    informing->add_option("file", *path, "The .wv5 file")->required();
    informing->callback([path] { inform(*path); });
}

} // namespace kez::tools
