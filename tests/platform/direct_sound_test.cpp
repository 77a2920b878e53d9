// SPDX-License-Identifier: MIT
#include "control_sound.h"

#include "support/host_window.h"

#include <windows.h>

#include <dsound.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <functional>
#include <memory>
#include <vector>

using namespace kez;
using namespace kez::test;
using testing::Each;

namespace {

constexpr int rate = 22050;
constexpr DWORD allControls
    = DSBCAPS_STATIC | DSBCAPS_CTRLFREQUENCY | DSBCAPS_CTRLPAN | DSBCAPS_CTRLVOLUME;

using Bytes = std::vector<BYTE>;

WAVEFORMATEX waveFormat(int channels = 1, int bits = 8, DWORD samplesPerSecond = rate)
{
    WAVEFORMATEX format = {};
    format.wFormatTag = WAVE_FORMAT_PCM;
    format.nChannels = static_cast<WORD>(channels);
    format.wBitsPerSample = static_cast<WORD>(bits);
    format.nBlockAlign = static_cast<WORD>(channels * bits / 8);
    format.nSamplesPerSec = samplesPerSecond;
    format.nAvgBytesPerSec = samplesPerSecond * format.nBlockAlign;
    return format;
}

struct Released {
    void operator()(IUnknown* object) const { object->Release(); }
};

using Buffer = std::unique_ptr<IDirectSoundBuffer, Released>;

class DirectSoundTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(winapi::useLoopback(rate));
        IDirectSound* made = nullptr;
        ASSERT_EQ(DirectSoundCreate(nullptr, &made, nullptr), DS_OK);
        sound.reset(made);
        ASSERT_EQ(sound->SetCooperativeLevel(window.handle(), DSSCL_NORMAL), DS_OK);
    }

    void TearDown() override
    {
        sound.reset();
        EXPECT_EQ(winapi::liveSoundBuffers(), 0);
        winapi::useSoundDevice();
    }

    Buffer make(DWORD bytes, WAVEFORMATEX format = waveFormat(), DWORD flags = allControls)
    {
        DSBUFFERDESC1 description = { sizeof(DSBUFFERDESC1), flags, bytes, 0, &format };
        IDirectSoundBuffer* buffer = nullptr;
        EXPECT_EQ(create(description, &buffer), DS_OK);
        return Buffer(buffer);
    }

    HRESULT create(DSBUFFERDESC1& description, IDirectSoundBuffer** buffer)
    {
        return sound->CreateSoundBuffer(
            reinterpret_cast<DSBUFFERDESC*>(&description), buffer, nullptr);
    }

    Buffer make(const Bytes& samples, WAVEFORMATEX format = waveFormat())
    {
        Buffer buffer = make(static_cast<DWORD>(samples.size()), format);
        write(*buffer, 0, samples);
        return buffer;
    }

    static void write(IDirectSoundBuffer& buffer, DWORD offset, const Bytes& bytes)
    {
        void* first = nullptr;
        void* second = nullptr;
        DWORD firstBytes = 0;
        DWORD secondBytes = 0;
        ASSERT_EQ(buffer.Lock(offset, static_cast<DWORD>(bytes.size()), &first, &firstBytes,
                      &second, &secondBytes, 0),
            DS_OK);
        ASSERT_EQ(firstBytes + secondBytes, bytes.size());
        std::memcpy(first, bytes.data(), firstBytes);
        if (second != nullptr)
            std::memcpy(second, bytes.data() + firstBytes, secondBytes);
        ASSERT_EQ(buffer.Unlock(first, firstBytes, second, secondBytes), DS_OK);
    }

    /// One side of what is heard next, as 8-bit steps from silence.
    static std::vector<int> hear(int frames, int side = 0)
    {
        std::vector<int> heard;
        const auto samples = winapi::renderSamples(frames);
        for (std::size_t i = static_cast<std::size_t>(side); i < samples.size(); i += 2)
            heard.push_back(static_cast<int>(std::lround(samples[i] / 256.0)));
        return heard;
    }

    static DWORD status(IDirectSoundBuffer& buffer)
    {
        DWORD value = 99;
        EXPECT_EQ(buffer.GetStatus(&value), DS_OK);
        return value;
    }

    static DWORD position(IDirectSoundBuffer& buffer)
    {
        DWORD play = 99;
        EXPECT_EQ(buffer.GetCurrentPosition(&play, nullptr), DS_OK);
        return play;
    }

    HostWindow window;
    std::unique_ptr<IDirectSound, Released> sound;
};

Bytes steps(std::size_t count)
{
    Bytes bytes;
    for (std::size_t i = 0; i < count; ++i)
        bytes.push_back(static_cast<BYTE>(28 + i % 200));
    return bytes;
}

std::vector<int> levels(const Bytes& bytes)
{
    std::vector<int> values;
    for (const BYTE byte : bytes)
        values.push_back(byte - 128);
    return values;
}

TEST_F(DirectSoundTest, playsABufferOnceFromWhereItStands)
{
    const Bytes bytes = steps(1000);
    const Buffer buffer = make(bytes);
    EXPECT_THAT(hear(100), Each(0));
    EXPECT_EQ(buffer->Play(0, 0, 0), DS_OK);
    EXPECT_EQ(status(*buffer), DSBSTATUS_PLAYING);
    std::vector<int> heard = hear(600);
    EXPECT_EQ(position(*buffer), 600u);
    const std::vector<int> rest = hear(400);
    heard.insert(heard.end(), rest.begin(), rest.end());
    EXPECT_EQ(heard, levels(bytes));
    EXPECT_THAT(hear(500), Each(0));
    EXPECT_EQ(status(*buffer), 0u);
    EXPECT_EQ(position(*buffer), 0u);
}

TEST_F(DirectSoundTest, loopsUntilStoppedAndGoesOnFromThere)
{
    const Bytes bytes = steps(500);
    const Buffer buffer = make(bytes);
    buffer->Play(0, 0, DSBPLAY_LOOPING);
    EXPECT_EQ(hear(500), levels(bytes));
    EXPECT_EQ(hear(500), levels(bytes));
    hear(200);
    EXPECT_EQ(status(*buffer), DSBSTATUS_PLAYING | DSBSTATUS_LOOPING);
    EXPECT_EQ(buffer->Stop(), DS_OK);
    EXPECT_EQ(status(*buffer), 0u);
    EXPECT_EQ(position(*buffer), 200u);
    hear(64); // the mixer fades what is cut off
    EXPECT_THAT(hear(100), Each(0));
    buffer->Play(0, 0, 0);
    hear(100);
    EXPECT_EQ(position(*buffer), 300u);
    EXPECT_EQ(hear(1)[0], levels(bytes)[300]);
    EXPECT_EQ(buffer->SetCurrentPosition(450), DS_OK); // while it plays
    hear(49);
    EXPECT_EQ(position(*buffer), 499u);
    hear(2);
    EXPECT_EQ(status(*buffer), 0u);
    EXPECT_EQ(buffer->SetCurrentPosition(500), DSERR_INVALIDPARAM);
}

TEST_F(DirectSoundTest, attenuatesByHundredthsOfADecibel)
{
    const Buffer buffer = make(Bytes(4000, 228)); // 100 steps above silence
    const auto level = [&](int side) {
        hear(200); // the mixer slides to a new volume
        return hear(1, side)[0];
    };
    buffer->Play(0, 0, DSBPLAY_LOOPING);
    EXPECT_EQ(level(0), 100);
    EXPECT_EQ(buffer->SetVolume(-602), DS_OK); // half
    EXPECT_EQ(level(0), 50);
    EXPECT_EQ(level(1), 50);
    EXPECT_EQ(buffer->SetPan(602), DS_OK); // to the right: the left is halved once more
    EXPECT_EQ(level(0), 25);
    EXPECT_EQ(level(1), 50);
    EXPECT_EQ(buffer->SetPan(DSBPAN_LEFT), DS_OK);
    EXPECT_EQ(level(0), 50);
    EXPECT_EQ(level(1), 0);
    EXPECT_EQ(buffer->SetVolume(DSBVOLUME_MIN), DS_OK);
    EXPECT_EQ(level(0), 0);
    LONG value = 0;
    EXPECT_EQ(buffer->GetVolume(&value), DS_OK);
    EXPECT_EQ(value, DSBVOLUME_MIN);
    EXPECT_EQ(buffer->GetPan(&value), DS_OK);
    EXPECT_EQ(value, DSBPAN_LEFT);
    EXPECT_EQ(buffer->SetVolume(1), DSERR_INVALIDPARAM);
    EXPECT_EQ(buffer->SetPan(10001), DSERR_INVALIDPARAM);
}

TEST_F(DirectSoundTest, playsFasterAtAHigherFrequency)
{
    const Buffer buffer = make(Bytes(4000, 228));
    EXPECT_EQ(buffer->SetFrequency(2 * rate), DS_OK);
    buffer->Play(0, 0, 0);
    EXPECT_EQ(hear(1900).back(), 100);
    EXPECT_EQ(position(*buffer), 3800u);
    hear(200);
    EXPECT_EQ(status(*buffer), 0u);
    DWORD frequency = 0;
    EXPECT_EQ(buffer->SetFrequency(DSBFREQUENCY_ORIGINAL), DS_OK);
    EXPECT_EQ(buffer->GetFrequency(&frequency), DS_OK);
    EXPECT_EQ(frequency, DWORD { rate });
    EXPECT_EQ(buffer->SetFrequency(99), DSERR_INVALIDPARAM);
}

TEST_F(DirectSoundTest, keepsTheSidesOfSixteenBitStereoApart)
{
    Bytes bytes;
    for (int i = 0; i < 1000; ++i)
        for (const int value : { i * 20, -i * 10 }) {
            bytes.push_back(static_cast<BYTE>(value & 255));
            bytes.push_back(static_cast<BYTE>(value >> 8 & 255));
        }
    const Buffer buffer = make(bytes, waveFormat(2, 16));
    buffer->SetCurrentPosition(40);
    buffer->Play(0, 0, 0);
    hear(500); // the mixer slides into a sound that does not start at its beginning
    const auto heard = winapi::renderSamples(100);
    EXPECT_NEAR(heard[2 * 75], 585 * 20, 3);
    EXPECT_NEAR(heard[2 * 75 + 1], -585 * 10, 3);
    EXPECT_EQ(position(*buffer), 40u + 600 * 4);
}

TEST_F(DirectSoundTest, locksAroundTheEndAndWhilePlaying)
{
    const Buffer buffer = make(Bytes(1000, 128));
    buffer->Play(0, 0, DSBPLAY_LOOPING);
    hear(500);
    write(*buffer, 900, Bytes(300, 228));
    EXPECT_THAT(hear(400), Each(0));
    EXPECT_THAT(hear(300), Each(100));
    EXPECT_THAT(hear(700), Each(0));
    void* first = nullptr;
    DWORD bytes = 0;
    EXPECT_EQ(buffer->Lock(900, 300, &first, &bytes, nullptr, nullptr, 0), DS_OK);
    EXPECT_EQ(bytes, 100u);
    EXPECT_EQ(buffer->Lock(900, 0, &first, &bytes, nullptr, nullptr, DSBLOCK_ENTIREBUFFER), DS_OK);
    EXPECT_EQ(bytes, 100u);
    EXPECT_EQ(buffer->Lock(0, 4, &first, &bytes, nullptr, nullptr, DSBLOCK_FROMWRITECURSOR), DS_OK);
    EXPECT_NE(bytes, 0u);
    EXPECT_EQ(buffer->Lock(1000, 1, &first, &bytes, nullptr, nullptr, 0), DSERR_INVALIDPARAM);
    EXPECT_EQ(buffer->Lock(0, 1001, &first, &bytes, nullptr, nullptr, 0), DSERR_INVALIDPARAM);
    EXPECT_EQ(buffer->Lock(0, 0, &first, &bytes, nullptr, nullptr, 0), DSERR_INVALIDPARAM);
    EXPECT_EQ(buffer->Unlock(&bytes, 4, nullptr, 0), DSERR_INVALIDPARAM);
}

TEST_F(DirectSoundTest, refusesControlsThatWereNotAskedFor)
{
    const Buffer buffer = make(100, waveFormat(), DSBCAPS_STATIC);
    EXPECT_EQ(buffer->SetVolume(-100), DSERR_CONTROLUNAVAIL);
    EXPECT_EQ(buffer->SetPan(0), DSERR_CONTROLUNAVAIL);
    EXPECT_EQ(buffer->SetFrequency(8000), DSERR_CONTROLUNAVAIL);
    EXPECT_EQ(buffer->Play(1, 0, 0), DSERR_INVALIDPARAM);
    EXPECT_EQ(buffer->Play(0, 0, 2), DSERR_INVALIDPARAM);
    DSBCAPS caps = { sizeof(DSBCAPS), 0, 0, 0, 0 };
    EXPECT_EQ(buffer->GetCaps(&caps), DS_OK);
    EXPECT_EQ(caps.dwBufferBytes, 100u);
    WAVEFORMATEX format = {};
    EXPECT_EQ(buffer->GetFormat(&format, sizeof format, nullptr), DS_OK);
    EXPECT_EQ(format.nSamplesPerSec, DWORD { rate });
}

TEST_F(DirectSoundTest, namesWhatIsWrongWithADescription)
{
    WAVEFORMATEX format = waveFormat();
    const DSBUFFERDESC1 good = { sizeof(DSBUFFERDESC1), allControls, 100, 0, &format };
    IDirectSoundBuffer* buffer = nullptr;
    const auto refused = [&](const std::function<void(DSBUFFERDESC1&)>& change) {
        format = waveFormat();
        DSBUFFERDESC1 description = good;
        change(description);
        const HRESULT result = create(description, &buffer);
        EXPECT_EQ(buffer, nullptr);
        return result;
    };
    EXPECT_EQ(refused([](auto& d) { d.dwSize = 4; }), DSERR_INVALIDPARAM);
    EXPECT_EQ(refused([](auto& d) { d.dwBufferBytes = 3; }), DSERR_INVALIDPARAM);
    EXPECT_EQ(refused([](auto& d) { d.dwBufferBytes = DSBSIZE_MAX + 1; }), DSERR_INVALIDPARAM);
    EXPECT_EQ(refused([](auto& d) { d.lpwfxFormat = nullptr; }), DSERR_INVALIDPARAM);
    EXPECT_EQ(refused([](auto& d) { d.dwFlags = 0x80000000u; }), DSERR_INVALIDPARAM);
    EXPECT_EQ(refused([](auto& d) { d.dwFlags = DSBCAPS_PRIMARYBUFFER; }), DSERR_UNSUPPORTED);
    EXPECT_EQ(refused([&](auto&) { format.wFormatTag = 2; }), DSERR_BADFORMAT);
    EXPECT_EQ(refused([&](auto&) { format.wBitsPerSample = 24; }), DSERR_BADFORMAT);
    EXPECT_EQ(refused([&](auto&) { format.nChannels = 3; }), DSERR_BADFORMAT);
    EXPECT_EQ(refused([&](auto&) { format.nBlockAlign = 2; }), DSERR_BADFORMAT);
    EXPECT_EQ(refused([&](auto&) { format.nSamplesPerSec = 0; }), DSERR_BADFORMAT);
    EXPECT_EQ(sound->CreateSoundBuffer(nullptr, &buffer, nullptr), DSERR_INVALIDPARAM);
    EXPECT_EQ(sound->SetCooperativeLevel(nullptr, DSSCL_NORMAL), DSERR_INVALIDPARAM);
    EXPECT_EQ(sound->SetCooperativeLevel(window.handle(), 0), DSERR_INVALIDPARAM);
}

TEST_F(DirectSoundTest, needsALevelBeforeBuffers)
{
    IDirectSound* second = nullptr;
    ASSERT_EQ(DirectSoundCreate(nullptr, &second, nullptr), DS_OK);
    WAVEFORMATEX format = waveFormat();
    DSBUFFERDESC description = { sizeof(DSBUFFERDESC), allControls, 100, 0, &format, {} };
    IDirectSoundBuffer* buffer = nullptr;
    EXPECT_EQ(second->CreateSoundBuffer(&description, &buffer, nullptr), DSERR_PRIOLEVELNEEDED);
    second->SetCooperativeLevel(window.handle(), DSSCL_NORMAL);
    EXPECT_EQ(second->CreateSoundBuffer(&description, &buffer, nullptr), DS_OK);
    EXPECT_EQ(second->Release(), 0u);
    EXPECT_EQ(buffer->Play(0, 0, 0), DS_OK); // outlives the object that made it
    EXPECT_EQ(buffer->Release(), 0u);
}

TEST_F(DirectSoundTest, findsNoDriverWithoutAnOutput)
{
    sound.reset();
    winapi::useNoSoundDevice();
    IDirectSound* none = nullptr;
    EXPECT_EQ(DirectSoundCreate(nullptr, &none, nullptr), DSERR_NODRIVER);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(DirectSoundCreate(nullptr, nullptr, nullptr), DSERR_INVALIDPARAM);
    EXPECT_THAT(winapi::renderSamples(10), Each(0));
}

} // namespace
