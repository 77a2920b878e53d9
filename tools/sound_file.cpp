// SPDX-License-Identifier: MIT
#include "sound_file.h"

#include "media/delta4.h"
#include "user_error.h"

#include <algorithm>

namespace kez::tools {

namespace {

constexpr std::uint8_t silence = 128;

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

} // namespace

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

std::string soundName(const LoadedSound& sound)
{
    std::string name;
    for (std::size_t i = 4; i < 44 && sound.record[i] != 0; ++i) {
        const std::uint8_t character = sound.record[i];
        name += character < ' ' || character > '~' ? '?' : static_cast<char>(character);
    }
    return name;
}

} // namespace kez::tools
