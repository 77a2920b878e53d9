// SPDX-License-Identifier: MIT
#include "tools/kez_run.h"

#include "media/delta4.h"
#include "media/sound_record.h"
#include "platform/files.h"
#include "platform/temporary_folder.h"
#include "tools/png_file.h"
#include "tools/sound_delta_encoder.h"
#include "tools/sound_levels.h"
#include "tools/sound_wave.h"

#include <gmock/gmock.h>
#include <sndfile.h>

#include <cmath>
#include <filesystem>
#include <functional>
#include <limits>
#include <random>

using namespace kez;
using namespace kez::test;
using namespace kez::tools;
using testing::HasSubstr;

namespace {

using Samples = std::vector<std::uint8_t>;

Samples decoded(const Samples& stream, std::size_t length)
{
    Samples samples(length);
    expandDelta4(stream, samples);
    return samples;
}

TEST(DeltaEncoder, keepsWithinHalfAByteASampleWhateverTheSound)
{
    constexpr std::size_t length = 3001;
    std::mt19937 random(7);

    const struct {
        const char* name;
        std::function<int(int)> at;
        double decibels; ///< At least.
    } sounds[] = {
        { "noise", [&](int) { return static_cast<int>(random() % 256); }, 12 },
        { "square", [](int i) { return i / 5 % 2 * 255; }, 8 },
        { "loudest", [](int) { return 255; }, 100 },
        { "steps", [](int i) { return i / 400 * 32; }, 100 },
        // No code moves further than 128, which leaves 6 dB of a sound that jumps by 255.
        { "alternating", [](int i) { return i % 2 * 255; }, 5.98 },
    };

    for (const auto& [name, at, decibels] : sounds) {
        SCOPED_TRACE(name);
        Samples samples { 128 };
        while (samples.size() < length)
            samples.push_back(static_cast<std::uint8_t>(at(static_cast<int>(samples.size()))));
        const Samples stream = encodeDelta4(samples);
        EXPECT_LE(stream.size(), delta4TableSize + length / 2);
        EXPECT_EQ(decoded(stream, length).front(), 128);
        EXPECT_GE(signalToNoise(samples, decoded(stream, length)), decibels);
    }
}

TEST(DeltaEncoder, losesNothingOfQuietSoundsAndLittleOfSteadyOnes)
{
    Samples quiet { 128 };
    for (int i = 1; i < 5000; ++i)
        quiet.push_back(static_cast<std::uint8_t>(
            128 + std::lround(30 * std::sin(0.05 * i) + 9 * std::sin(0.31 * i))));
    EXPECT_EQ(decoded(encodeDelta4(quiet), quiet.size()), quiet);

    // A jump needs an escape, the rest are runs: a few bytes for a second.
    Samples steady(22050, 128);
    std::fill(steady.begin() + 9000, steady.begin() + 15000, std::uint8_t { 254 });
    const Samples stream = encodeDelta4(steady);
    EXPECT_EQ(decoded(stream, steady.size()), steady);
    EXPECT_LT(stream.size(), delta4TableSize + 300);
}

TEST(DeltaEncoder, takesTheShortestSounds)
{
    for (std::size_t length = 1; length < 8; ++length) {
        Samples samples(length, 140);
        samples.front() = 128;
        const Samples stream = encodeDelta4(samples);
        EXPECT_LE(stream.size(), delta4TableSize + length / 2);
        EXPECT_EQ(decoded(stream, length), samples) << length;
    }
}

TEST(LoudnessTrack, isCentredOnItsTimesAndCountsDecibels)
{
    // 1000 Hz, a value every 100 samples: loud up to sample 150, 18 dB quieter to 350, then silent.
    Samples samples(1000, 128);
    for (std::size_t i = 0; i < 350; ++i)
        samples[i] = static_cast<std::uint8_t>(128 + (i % 2 == 0 ? 1 : -1) * (i < 150 ? 64 : 8));
    const Samples track = loudnessTrack(samples, 1000, 100);
    ASSERT_EQ(track.size(), 10u);
    EXPECT_EQ(track[0], 255);
    EXPECT_EQ(track[1], 255);
    EXPECT_NEAR(track[2], 127, 2);
    EXPECT_NEAR(track[3], 127, 2);
    EXPECT_EQ(track[4], 0);
}

class Sounds : public testing::Test {
protected:
    /// 440 Hz on one of two channels, 44,100 Hz, 1 s; the second half is silent.
    std::string writeStereo(const char* name)
    {
        SF_INFO format {};
        format.samplerate = 44100;
        format.channels = 2;
        format.format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
        std::string path = folder / name;
        SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &format);
        for (int i = 0; i < 44100; ++i) {
            const float value = i < 22050
                ? 0.8f * std::sin(6.2831853f * 440.0f * static_cast<float>(i) / 44100)
                : 0.0f;
            const float frame[] = { value, 0 };
            sf_writef_float(file, frame, 1);
        }
        sf_close(file);
        return path;
    }

    TemporaryFolder folder;
};

TEST_F(Sounds, becomeRecordsOfOneChannelAndComeBack)
{
    const std::string wave = writeStereo("in.wav");
    const std::string record = folder / "note.wv5";
    for (const bool plain : { true, false }) {
        SCOPED_TRACE(plain);
        const KezRun run = plain
            ? runKez({ "sound", "encode", wave, record, "--plain", "--rate", "11025" })
            : runKez({ "sound", "encode", wave, record, "--sync" });
        ASSERT_EQ(run.status, 0) << run.errors;
        const std::string bytes = folder.get("note.wv5");
        const std::span data(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        const auto header = readSoundHeader(data);
        ASSERT_TRUE(header);
        EXPECT_EQ(bytes.substr(4, 5), std::string("note\0", 5));
        EXPECT_EQ(data[0] | data[1] << 8, static_cast<int>(bytes.size() & 0xFFFF));
        EXPECT_EQ(header->samplesPerSecond, plain ? 11025u : 22050u);
        EXPECT_NEAR(header->sampleLength, header->samplesPerSecond, 2);

        ASSERT_EQ(runKez({ "sound", "decode", record, folder / "out.wav" }).status, 0);
        const std::vector<float> heard = readWave(folder / "out.wav", plain ? 11025 : 22050);
        ASSERT_EQ(heard.size(), header->sampleLength);
        int crossings = 0; // Upwards; 220 in half a second of 440 Hz.
        for (std::size_t i = 1; i < heard.size() / 2; ++i)
            crossings += heard[i - 1] < 0 && heard[i] >= 0;
        EXPECT_NEAR(crossings, 220, 1);
        EXPECT_NEAR(std::ranges::max(heard), 0.4, 0.02);

        const auto sync = soundSyncTrack(data, *header);
        ASSERT_EQ(sync.has_value(), !plain);
        if (sync) {
            EXPECT_EQ(sync->intervalMs, 100);
            ASSERT_EQ(sync->values.size(), 10u);
            EXPECT_GT(sync->values[2], 250);
            EXPECT_EQ(sync->values[8], 0);
        }
    }
    const KezRun info = runKez({ "sound", "info", record });
    EXPECT_THAT(info.out, HasSubstr("name      note\n"));
    EXPECT_THAT(info.out, HasSubstr("1.000 s, 22050 samples at 22050 Hz"));
    EXPECT_THAT(info.out, HasSubstr("4-bit delta"));
    EXPECT_THAT(info.out, HasSubstr("10 values, one every 100 ms"));
}

TEST_F(Sounds, refuseInOneLineAndWriteNothing)
{
    const std::string wave = writeStereo("in.wav");
    folder.put("text.wav", "no sound at all");
    folder.put("empty.wav", "");
    writeWave(folder / "none.wav", 22050, {});
    const std::initializer_list<std::string> cases[] = {
        { "sound", "encode", folder / "missing.wav", folder / "a.wv5" },
        { "sound", "encode", folder / "text.wav", folder / "a.wv5" },
        { "sound", "encode", folder / "empty.wav", folder / "a.wv5" },
        { "sound", "encode", folder / "none.wav", folder / "a.wv5" },
        { "sound", "encode", folder / ".", folder / "a.wv5" },
        { "sound", "encode", wave, folder / "no/a.wv5", "--plain" },
        { "sound", "encode", wave, folder / "a.wv5", "--name", std::string(40, 'x') },
        { "sound", "decode", folder / "missing.wv5", folder / "a.wav" },
        { "sound", "decode", folder / ".", folder / "a.wav" },
        { "sound", "decode", wave, folder / "a.wav" },
    };
    for (const auto& arguments : cases) {
        const KezRun run = runKez(arguments);
        SCOPED_TRACE(run.errors);
        EXPECT_EQ(run.status, 1);
        EXPECT_EQ(std::ranges::count(run.errors, '\n'), 1);
        EXPECT_FALSE(files::exists(folder / "a.wv5"));
        EXPECT_FALSE(files::exists(folder / "a.wav"));
    }
    EXPECT_EQ(runKez({ "sound" }).status, 2);
    EXPECT_EQ(runKez({ "sound", "encode", wave, folder / "a.wv5", "--rate", "0" }).status, 2);
}

TEST_F(Sounds, areRefusedWhenDamaged)
{
    ASSERT_EQ(runKez({ "sound", "encode", writeStereo("in.wav"), folder / "a.wv5", "--sync",
                         "--rate", "1000" })
                  .status,
        0);
    const std::string whole = folder.get("a.wv5");
    for (std::size_t length = 0; length < whole.size(); ++length) {
        folder.put("b.wv5", whole.substr(0, length));
        ASSERT_EQ(runKez({ "sound", "info", folder / "b.wv5" }).status, 1) << length;
    }

    const struct {
        std::size_t offset;
        char value;
    } faults[] = { { 88, 2 }, { 92, 16 }, { 92, 0 }, { 104, 2 }, { 103, 127 }, { 111, 1 },
        { 115, 1 }, { 99, 127 } };

    for (const auto& fault : faults) {
        std::string bytes = whole;
        bytes[fault.offset] = fault.value;
        folder.put("b.wv5", bytes);
        const KezRun run = runKez({ "sound", "decode", folder / "b.wv5", folder / "b.wav" });
        EXPECT_EQ(run.status, 1) << fault.offset;
        EXPECT_THAT(run.errors, HasSubstr("b.wv5: "));
    }
}

// However the artist's recorder spells a file's name; and nothing is written when one is damaged.
TEST_F(Sounds, becomePartOfContentWhereverTheyCome)
{
    std::filesystem::create_directories(folder / "own/Audio");
    folder.put("own/manifest.txt", "sprite dot\n");
    writePng(folder / "own/dot.png", { 1, 1, { ~0u } });
    std::filesystem::rename(writeStereo("in.wav"), folder / "own/Audio/TAP.Wav");
    folder.put("own/Audio/bad.mp3", "no recording of a kind that is read");
    folder.put("own/Audio/trash.wav", "no sound at all");
    const KezRun refused = runKez({ "content", folder / "own", folder / "made" });
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.errors, HasSubstr("Audio/trash.wav: "));
    EXPECT_FALSE(std::filesystem::exists(folder / "made/audio"));
    EXPECT_FALSE(std::filesystem::exists(folder / "made/data"));

    std::filesystem::remove(folder / "own/Audio/trash.wav");
    const KezRun run = runKez({ "content", folder / "own", folder / "made" });
    EXPECT_EQ(run.status, 0) << run.errors;
    EXPECT_TRUE(std::filesystem::exists(folder / "made/audio/TAP.wv5"));
    EXPECT_THAT(run.out, HasSubstr("Audio/bad.mp3: it is taken along as it is, and not played"));
    EXPECT_THAT(run.out, HasSubstr(": 1 picture of "));
}

} // namespace
