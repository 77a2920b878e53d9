// SPDX-License-Identifier: MIT
/// kez sound: sounds into records and back.
#include "commands.h"
#include "sound_encoding.h"
#include "sound_file.h"
#include "sound_levels.h"
#include "sound_wave.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>

namespace kez::tools {

namespace {

void decode(const std::string& from, const std::string& to)
{
    const LoadedSound sound = loadSound(from);
    writeWave(to, static_cast<int>(sound.header.samplesPerSecond), sound.samples);
}

void inform(const std::string& path)
{
    const LoadedSound sound = loadSound(path);
    const SoundHeader& header = sound.header;
    const auto length = sound.samples.size();
    std::printf("name      %s\n", soundName(sound).c_str());
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
    const auto job = std::make_shared<SoundJob>();
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
    encoding->callback([job] { std::printf("%s\n", encodeSound(*job).c_str()); });
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
