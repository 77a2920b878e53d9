// SPDX-License-Identifier: MIT
// Listens to the built content with numbers: loudness, lengths, silence, clipping, the song's seam.
#include "media/delta4.h"
#include "media/sound_record.h"
#include "platform/files.h"
#include "platform/temporary_folder.h"
#include "tools/sound_levels.h"
#include "tools/sound_wave.h"

#include <gtest/gtest.h>
#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <sstream>

using namespace kez;
using namespace kez::test;
using namespace kez::tools;

namespace {

using Samples = std::vector<std::uint8_t>;

constexpr int rate = 22050;
constexpr int clips = 29;
constexpr int ceiling = 114; // 1 dB below full scale.
constexpr double voiceLevel = -17.2; // Without the pauses, in decibels.

const char* const languages[] = { "audio", "languages/de/audio" };

std::string clipName(int number)
{
    return (number < 10 ? "kez0" : "kez") + std::to_string(number);
}

struct Heard {
    SoundHeader header;
    Samples samples;
    std::size_t packed = 0;
    std::size_t syncValues = 0;
};

Heard hear(const std::string& folder, const std::string& name)
{
    Heard sound;
    const auto record
        = files::read(std::string(KEZ_BUILT) + "/bin/" + folder + "/" + name + ".wv5");
    const auto header = record ? readSoundHeader(*record) : std::nullopt;
    const auto block = header ? soundBlock(*record, *header) : std::nullopt;
    EXPECT_TRUE(block) << folder << "/" << name;
    if (!block)
        return sound;
    sound.header = *header;
    sound.packed = block->size();
    sound.samples.resize(header->sampleLength);
    expandDelta4(*block, sound.samples);
    if (const auto sync = soundSyncTrack(*record, *header))
        sound.syncValues = sync->values.size();
    return sound;
}

double power(std::span<const std::uint8_t> samples)
{
    return std::pow(10, rmsDecibels(samples) / 10);
}

/// Decibels of the moments (50 ms) that are not pauses.
double spokenLevel(const Samples& samples)
{
    constexpr std::size_t moment = rate / 20;
    std::vector<double> powers;
    for (std::size_t i = 0; i + moment <= samples.size(); i += moment)
        powers.push_back(power(std::span(samples).subspan(i, moment)));
    const double loudest = std::ranges::max(powers);
    double sum = 0;
    int count = 0;
    for (const double each : powers) {
        if (each > loudest / 300) {
            sum += each;
            ++count;
        }
    }
    return 10 * std::log10(sum / count);
}

TEST(Voices, areEquallyLoudTrimmedAndNotClipped)
{
    for (const char* language : languages) {
        for (int number = 0; number < clips; ++number) {
            SCOPED_TRACE(language + clipName(number));
            const Heard clip = hear(language, clipName(number));
            ASSERT_GT(clip.samples.size(), rate / 2u);
            EXPECT_LT(clip.samples.size(), rate * 9u);
            EXPECT_EQ(clip.header.samplesPerSecond, static_cast<std::uint32_t>(rate));
            EXPECT_EQ(clip.header.encoding, deltaEncoding);
            EXPECT_EQ(clip.syncValues, (clip.samples.size() + 2204) / 2205);
            EXPECT_LE(peakOf(clip.samples), ceiling + 3); // The code may overshoot a little.
            EXPECT_NEAR(spokenLevel(clip.samples), voiceLevel, 1.5); // All within 3 dB.

            const auto isHeard = [](int sample) { return std::abs(sample - 128) > 2; };
            const auto first = std::ranges::find_if(clip.samples, isHeard) - clip.samples.begin();
            const auto last = std::find_if(clip.samples.rbegin(), clip.samples.rend(), isHeard)
                - clip.samples.rbegin();
            EXPECT_LT(first, rate / 10);
            EXPECT_LT(last, rate / 4);
            EXPECT_GT(first, 20) << "it starts with a click";
            EXPECT_GT(last, 20) << "it ends with a click";
        }
    }
}

TEST(Voices, haveACaptionForEveryClip)
{
    for (const char* language : languages) {
        const auto bytes
            = files::read(std::string(KEZ_BUILT) + "/bin/" + language + "/captions.txt");
        ASSERT_TRUE(bytes) << language;
        std::istringstream text(std::string(bytes->begin(), bytes->end()));
        std::string line;
        for (int number = 0; number < clips; ++number) {
            ASSERT_TRUE(std::getline(text, line));
            const std::string id = std::to_string(number == 0 ? 100 : number) + "\t";
            EXPECT_EQ(line.substr(0, id.size()), id);
            EXPECT_GT(line.size(), id.size() + 5);
        }
        EXPECT_FALSE(std::getline(text, line));
    }
}

/// What IMA's code with its fixed tables makes of the sound, and in how many bytes.
Samples throughAdpcm(const TemporaryFolder& folder, const Samples& samples, std::size_t& bytes)
{
    const std::string path = folder / "adpcm.wav";
    SF_INFO format {};
    format.samplerate = rate;
    format.channels = 1;
    format.format = SF_FORMAT_WAV | SF_FORMAT_IMA_ADPCM;
    std::vector<short> words;
    for (const int sample : samples)
        words.push_back(static_cast<short>((sample - 128) * 256));
    SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &format);
    sf_write_short(file, words.data(), static_cast<sf_count_t>(words.size()));
    sf_close(file);
    bytes = static_cast<std::size_t>(files::size(path));
    file = sf_open(path.c_str(), SFM_READ, &format);
    sf_read_short(file, words.data(), static_cast<sf_count_t>(words.size()));
    sf_close(file);
    Samples heard;
    for (const short word : words)
        heard.push_back(
            static_cast<std::uint8_t>(std::clamp(128L + std::lround(word / 256.0), 0L, 255L)));
    return heard;
}

TEST(Voices, loseLessThanThroughAdpcmInFewerBytes)
{
    const TemporaryFolder folder;
    for (const char* language : languages) {
        Samples all;
        Samples ours;
        Samples theirs;
        std::size_t ourBytes = 0;
        std::size_t theirBytes = 0;
        for (int number = 0; number < clips; ++number) {
            const std::string name = clipName(number);
            const Samples plain = toBytes(readWave(
                std::string(KEZ_BUILT) + "/content/waves/" + language + "/" + name + ".wav", rate));
            const Heard clip = hear(language, name);
            ASSERT_EQ(clip.samples.size(), plain.size());
            std::size_t bytes = 0;
            const Samples adpcm = throughAdpcm(folder, plain, bytes);
            all.insert(all.end(), plain.begin(), plain.end());
            ours.insert(ours.end(), clip.samples.begin(), clip.samples.end());
            theirs.insert(theirs.end(), adpcm.begin(), adpcm.end());
            ourBytes += clip.packed;
            theirBytes += bytes;
        }
        const double ourNoise = signalToNoise(all, ours);
        const double theirNoise = signalToNoise(all, theirs);
        std::printf("%s: 4-bit delta %.1f dB in %zu bytes, IMA ADPCM %.1f dB in %zu bytes\n",
            language, ourNoise, ourBytes, theirNoise, theirBytes);
        EXPECT_GT(ourNoise, theirNoise);
        EXPECT_LT(ourBytes, theirBytes);
    }
}

TEST(ScreenSounds, areShortAndQuieterThanTheVoices)
{
    const struct {
        const char* name;
        double longest;
    } sounds[] = { { "tap", 0.25 }, { "shutter", 0.8 }, { "bad", 0.8 }, { "trash", 1.0 } };

    for (const auto& each : sounds) {
        SCOPED_TRACE(each.name);
        const Heard sound = hear("audio", each.name);
        ASSERT_GT(sound.samples.size(), rate / 20u);
        EXPECT_LT(static_cast<double>(sound.samples.size()), each.longest * rate);
        EXPECT_LE(peakOf(sound.samples), ceiling);
        EXPECT_LT(spokenLevel(sound.samples), -14);
        EXPECT_GT(peakOf(sound.samples), 25);
        EXPECT_NEAR(sound.samples.back(), 128, 2);
    }
}

/// The largest step between neighbours within 10 ms of the seam, the seam itself left out.
int largestStepNearSeam(const Samples& samples)
{
    constexpr std::size_t reach = rate / 100;
    int largest = 0;
    const auto look = [&](std::span<const std::uint8_t> part) {
        for (std::size_t i = 1; i < part.size(); ++i)
            largest = std::max(largest, std::abs(part[i] - part[i - 1]));
    };
    look(std::span(samples).first(reach));
    look(std::span(samples).last(reach));
    return largest;
}

bool clicksAtSeam(const Samples& samples)
{
    return std::abs(samples.front() - samples.back()) > largestStepNearSeam(samples);
}

TEST(Song, loopsWithoutAClickOrAGapBelowTheVoices)
{
    const Heard song = hear("audio", "kezsong");
    const Samples& samples = song.samples;
    ASSERT_GT(samples.size(), rate * 40u);
    EXPECT_LT(samples.size(), rate * 90u);
    EXPECT_LT(spokenLevel(samples), -22);
    EXPECT_LE(peakOf(samples), 64);

    EXPECT_FALSE(clicksAtSeam(samples));
    // A bad cut would be noticed: the same song, ended at a crest of its last second.
    const auto lastSecond = samples.end() - rate;
    const Samples cut(samples.begin(), std::max_element(lastSecond, samples.end()) + 1);
    EXPECT_TRUE(clicksAtSeam(cut));
    // The last notes still sound at the seam.
    constexpr std::size_t moment = rate / 10;
    const double before = rmsDecibels(std::span(samples).last(moment));
    EXPECT_GT(before, -50);
}

} // namespace
