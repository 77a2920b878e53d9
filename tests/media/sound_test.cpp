// SPDX-License-Identifier: MIT
#include "media/sound.h"

#include "control_sound.h"
#include "core/clock.h"
#include "media/sound_record_bytes.h"
#include "platform/temporary_folder.h"
#include "support/debug_output.h"
#include "support/host_window.h"
#include "support/sound_recorder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <random>

using namespace kez;
using namespace kez::test;
using testing::Each;
using testing::HasSubstr;
using testing::Not;

namespace {

constexpr int rate = 22050;

/// A folder with "audio", in which sounds are loaded, and a DirectSound that plays into memory.
class SoundTest : public testing::Test {
protected:
    void SetUp() override
    {
        former = std::filesystem::current_path();
        std::filesystem::current_path(folder.path());
        std::filesystem::create_directory("audio");
        ASSERT_TRUE(winapi::useLoopback(rate));
        ASSERT_EQ(DirectSoundCreate(nullptr, &directSound, nullptr), DS_OK);
        directSound->SetCooperativeLevel(window.handle(), DSSCL_NORMAL);
        frameTime = 5000;
    }

    void TearDown() override
    {
        if (directSound != nullptr)
            directSound->Release();
        directSound = nullptr;
        EXPECT_EQ(winapi::liveSoundBuffers(), 0);
        winapi::useSoundDevice();
        std::filesystem::current_path(former);
    }

    void put(const std::string& name, const SoundRecord& record) const
    {
        folder.put("audio/" + name + ".wv5", record.text());
    }

    /// A steady sound, `steps` above silence.
    static SoundRecord steady(int steps, std::size_t length = rate)
    {
        return { .packed = SoundBytes(length, static_cast<std::uint8_t>(128 + steps)) };
    }

    /// What is heard next, as 8-bit steps from silence.
    static std::vector<int> hear(int frames)
    {
        std::vector<int> heard;
        for (const std::int16_t sample : winapi::renderSamples(frames))
            heard.push_back(static_cast<int>(std::lround(sample / 256.0)));
        return heard;
    }

    static int loadedSounds() { return Sound(nullptr).registry().count(); }

    static int level() { return hear(200).back(); }

    TemporaryFolder folder;
    std::filesystem::path former;
    HostWindow window;
    DebugOutput log;
};

TEST_F(SoundTest, isLoadedBetweenAttachAndDetach)
{
    put("snap", steady(40));
    Sound sound("snap");
    sound.play(false); // not loaded yet
    EXPECT_FALSE(sound.isRegistered());
    sound.attach();
    sound.attach();
    ASSERT_TRUE(sound.isRegistered());
    EXPECT_EQ(loadedSounds(), 1);
    EXPECT_EQ(sound.buffer()->name(), "snap");
    EXPECT_EQ(sound.buffer()->duration(), 1000u);
    EXPECT_EQ(level(), 0);
    sound.play(false);
    EXPECT_EQ(level(), 40);
    sound.detach();
    EXPECT_EQ(loadedSounds(), 0);
    hear(64);
    EXPECT_EQ(level(), 0);
    EXPECT_EQ(winapi::liveSoundBuffers(), 0);
    {
        Sound dying("snap");
        dying.attach();
    }
    EXPECT_EQ(loadedSounds(), 0);
}

TEST_F(SoundTest, startsAgainAndLoops)
{
    SoundRecord record { .packed = SoundBytes(1000, 138) };
    record.packed.insert(record.packed.end(), 1000, 188);
    put("two", record);
    Sound sound("two");
    sound.attach();
    EXPECT_EQ(sound.buffer()->play(false), 2000u * 1000 / rate);
    hear(1200);
    EXPECT_EQ(level(), 60);
    sound.play(false);
    hear(200);
    EXPECT_EQ(level(), 10);
    hear(2000);
    EXPECT_EQ(level(), 0);
    sound.play(true);
    hear(2000);
    EXPECT_EQ(level(), 10);
    hear(1000);
    EXPECT_EQ(level(), 60);
    sound.stop();
    hear(64);
    EXPECT_EQ(level(), 0);
    EXPECT_TRUE(sound.isRegistered());
}

TEST_F(SoundTest, decodesDeltaSounds)
{
    SoundRecord record { .encoding = 1, .packed = SoundBytes(16), .sampleLength = 400 };
    // The escape to 178, then a run of 200 of it.
    for (const int byte : { 0xFB, 0x2F, 0xFF, 0xC8 })
        record.packed.push_back(static_cast<std::uint8_t>(byte));
    put("delta", record);
    Sound sound("delta");
    sound.attach();
    sound.play(false);
    EXPECT_EQ(hear(100).back(), 50);
    hear(110);
    EXPECT_EQ(level(), 0);
}

TEST_F(SoundTest, reportsItsSyncValueByTheFrameClock)
{
    SoundRecord record = steady(1, 100);
    record.syncValues = { 11, 22, 33, 44, 55 };
    put("lips", record);
    Sound sound("lips");
    sound.attach();
    sound.play(false);
    const auto after = [&](std::uint32_t ms) {
        frameTime = 5000 + ms;
        return static_cast<int>(sound.buffer()->syncValue());
    };
    EXPECT_EQ(after(0), 11);
    EXPECT_EQ(after(49), 11);
    EXPECT_EQ(after(50), 22);
    EXPECT_EQ(after(149), 22);
    EXPECT_EQ(after(150), 33);
    EXPECT_EQ(after(349), 44);
    EXPECT_EQ(after(350), 55);
    EXPECT_EQ(after(1'000'000), 55);
    sound.play(false); // starts the track anew
    frameTime += 150;
    EXPECT_EQ(sound.buffer()->syncValue(), 33);

    record.syncIntervalMs = 0;
    put("still", record);
    Sound still("still");
    still.attach();
    still.play(false);
    EXPECT_EQ(still.buffer()->syncValue(), 0);
}

TEST_F(SoundTest, comesFromARecordWithoutItsSyncTrack)
{
    SoundRecord record = steady(25);
    record.syncValues = { 9 };
    const SoundBytes bytes = record.bytes();
    Sound sound("rec");
    sound.loadFromRecord(nullptr);
    EXPECT_FALSE(sound.isRegistered());
    EXPECT_THAT(log.text(), HasSubstr("rec"));
    sound.loadFromRecord(bytes.data());
    ASSERT_TRUE(sound.isRegistered());
    sound.play(false);
    EXPECT_EQ(level(), 25);
    EXPECT_EQ(sound.buffer()->syncValue(), 0);

    record.encoding = 7;
    Sound refused("ref");
    refused.loadFromRecord(record.bytes().data());
    EXPECT_FALSE(refused.isRegistered());
}

TEST_F(SoundTest, isSilentWithoutDirectSound)
{
    directSound->Release();
    directSound = nullptr;
    SoundRecord record = steady(25);
    record.syncValues = { 9 };
    put("mute", record);
    Sound sound("mute");
    sound.attach();
    ASSERT_TRUE(sound.isRegistered());
    sound.play(true);
    sound.stop();
    EXPECT_EQ(sound.buffer()->play(false), 0u);
    EXPECT_EQ(sound.buffer()->duration(), 0u);
    EXPECT_EQ(sound.buffer()->syncValue(), 0);
    EXPECT_EQ(log.text(), "");
}

TEST_F(SoundTest, tellsOfAFileThatDoesNotOpen)
{
    Sound missing("none");
    missing.attach();
    EXPECT_FALSE(missing.isRegistered());
    EXPECT_THAT(log.text(), HasSubstr("Sound audio\\none.wv5 not found."));
    std::filesystem::create_directory("audio/dir.wv5");
    Sound directory("dir");
    directory.attach();
    EXPECT_FALSE(directory.isRegistered());
    EXPECT_THAT(log.text(), HasSubstr("Sound audio\\dir.wv5 not found."));
}

struct BadRecord {
    const char* name;
    void (*change)(SoundRecord&);
    const char* says;
};

TEST_F(SoundTest, makesASilentSoundOfWhatItCannotPlay)
{
    const BadRecord cases[] = {
        { "bits", [](SoundRecord& r) { r.bits = 12; },
            "Sound bits not loaded: MonoOrStereo 0 not supported." },
        { "words", [](SoundRecord& r) { r.bits = 16; },
            "Sound words not loaded: 16bit sound not supported." },
        { "stereo", [](SoundRecord& r) { r.channels = 2; },
            "Sound stereo not loaded: 16bit sound not supported." },
        { "three", [](SoundRecord& r) { r.channels = 3; }, "wave format is not supported" },
        { "none", [](SoundRecord& r) { r.channels = 0; }, "Sound none not loaded" },
        { "many", [](SoundRecord& r) { r.channels = 0x40000001; }, "Sound many not loaded" },
        { "rate", [](SoundRecord& r) { r.samplesPerSecond = 0; }, "Sound rate not loaded" },
        { "fast", [](SoundRecord& r) { r.samplesPerSecond = 0xFFFFFFFF; }, "Sound fast not" },
        { "long", [](SoundRecord& r) { r.sampleLength = 0xFFFFFFFF; }, "Sound long not loaded" },
        { "more", [](SoundRecord& r) { r.sampleLength = 1001; }, "Sound more not loaded" },
        { "table", [](SoundRecord& r) { r.encoding = 1, r.packed.resize(15); }, "Sound table not" },
        { "code", [](SoundRecord& r) { r.encoding = 2; }, "" },
    };
    for (const BadRecord& bad : cases) {
        SCOPED_TRACE(bad.name);
        log.take();
        SoundRecord record = steady(50, 1000);
        record.syncValues = { 7 };
        bad.change(record);
        put(bad.name, record);
        Sound sound(bad.name);
        sound.attach();
        ASSERT_TRUE(sound.isRegistered());
        EXPECT_THAT(log.text(), HasSubstr(bad.says));
        EXPECT_EQ(log.text().empty(), *bad.says == 0);
        sound.play(false);
        EXPECT_EQ(level(), 0);
        EXPECT_EQ(sound.buffer()->duration(), 0u);
        EXPECT_EQ(sound.buffer()->syncValue(), 0);
    }
}

TEST_F(SoundTest, survivesEveryTruncationAndDamagedOffset)
{
    SoundRecord record { .encoding = 1, .packed = SoundBytes(40, 0x1F), .sampleLength = 60 };
    record.syncValues = { 1, 2, 3 };
    const std::string whole = record.text();
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        log.take();
        folder.put("audio/cut.wv5", whole.substr(0, length));
        Sound sound("cut");
        sound.attach();
        ASSERT_TRUE(sound.isRegistered());
        EXPECT_EQ(sound.buffer()->isSilent(), length < whole.size()) << length;
        EXPECT_EQ(log.text().empty(), length == whole.size()) << length;
    }
    std::mt19937 random(5);
    for (int round = 0; round < 2000; ++round) {
        std::string damaged = whole;
        const std::size_t field = 88 + 4 * (random() % 8);
        const auto low = static_cast<std::uint32_t>(random() % 256);
        const std::uint32_t value = round % 2 == 0 ? low : 0xFFFFFF00 + low;
        for (std::size_t i = 0; i < 4; ++i)
            damaged[field + i] = static_cast<char>(value >> 8 * i);
        folder.put("audio/hurt.wv5", damaged);
        Sound sound("hurt");
        sound.attach();
        sound.play(true);
        frameTime += static_cast<std::uint32_t>(random() % 1000);
        static_cast<void>(sound.buffer()->syncValue());
    }
}

TEST_F(SoundTest, goesOnWhenNoBufferCanBeMade)
{
    directSound->Release();
    ASSERT_EQ(DirectSoundCreate(nullptr, &directSound, nullptr), DS_OK); // without a level
    put("late", steady(10));
    Sound sound("late");
    sound.attach();
    EXPECT_THAT(log.text(), HasSubstr("priority level"));
    EXPECT_TRUE(sound.isRegistered());
    EXPECT_TRUE(sound.buffer()->isSilent());
}

TEST_F(SoundTest, fallsSilentWhenTheDeviceIsLost)
{
    directSound->Release();
    SoundRecorder device;
    directSound = &device;
    device.makeSound("song");
    Sound sound("song");
    sound.attach();
    sound.play(true);
    ASSERT_TRUE(device.plays("song"));
    device.lose();
    sound.play(false);
    sound.stop();
    sound.detach();
    EXPECT_EQ(log.text(), "");
    EXPECT_EQ(device.loaded(), 0u);

    sound.attach(); // finds a buffer that cannot be filled
    EXPECT_THAT(log.text(), HasSubstr(directSoundErrorText(DSERR_BUFFERLOST).c_str()));
    ASSERT_TRUE(sound.isRegistered());
    EXPECT_TRUE(sound.buffer()->isSilent());
    EXPECT_EQ(sound.buffer()->play(false), 0u);
    EXPECT_EQ(device.loaded(), 0u);
    sound.detach();
    EXPECT_EQ(device.begun().size(), 1u);
    directSound = nullptr;
}

TEST(DirectSoundErrors, areToldInWords)
{
    EXPECT_EQ(directSoundErrorText(DS_OK), "Success");
    EXPECT_EQ(directSoundErrorText(DSERR_NODRIVER), "No sound driver is available for use.");
    EXPECT_EQ(directSoundErrorText(static_cast<HRESULT>(0x80000000)), "Unknown error -2147483648");
    for (const HRESULT code : { DSERR_ALLOCATED, DSERR_ALREADYINITIALIZED, DSERR_BADFORMAT,
             DSERR_BUFFERLOST, DSERR_CONTROLUNAVAIL, DSERR_GENERIC, DSERR_INVALIDCALL,
             DSERR_INVALIDPARAM, DSERR_NOAGGREGATION, DSERR_NOINTERFACE, DSERR_OTHERAPPHASPRIO,
             DSERR_OUTOFMEMORY, DSERR_PRIOLEVELNEEDED, DSERR_UNINITIALIZED, DSERR_UNSUPPORTED })
        EXPECT_THAT(directSoundErrorText(code).c_str(), Not(HasSubstr("Unknown")));
}

} // namespace
