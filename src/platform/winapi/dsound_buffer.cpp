// SPDX-License-Identifier: MIT
#include "dsound_buffer.h"

#include "control_sound.h"
#include "stereo_samples.h"

#include <AL/alext.h>

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace kez::winapi {

namespace {

constexpr DWORD writeLeadMs = 15; // What the mixer may have taken already.

} // namespace

int SoundBuffer::live = 0;

HRESULT SoundBuffer::create(
    std::shared_ptr<Mixer> mixer, const DSBUFFERDESC1& description, LPDIRECTSOUNDBUFFER* buffer)
{
    std::unique_ptr<BYTE[]> memory(new (std::nothrow) BYTE[description.dwBufferBytes]);
    if (!memory)
        return DSERR_OUTOFMEMORY;
    const int silence = description.lpwfxFormat->wBitsPerSample == 8 ? 128 : 0;
    std::memset(memory.get(), silence, description.dwBufferBytes);
    auto* made = new (std::nothrow) SoundBuffer(std::move(mixer), description, std::move(memory));
    if (made == nullptr)
        return DSERR_OUTOFMEMORY;
    if (!made->makeVoice()) {
        made->Release();
        return DSERR_OUTOFMEMORY;
    }
    *buffer = made;
    return DS_OK;
}

SoundBuffer::SoundBuffer(
    std::shared_ptr<Mixer> mixer, const DSBUFFERDESC1& description, std::unique_ptr<BYTE[]> memory)
    : mixer_(std::move(mixer))
    , flags_(description.dwFlags)
    , size_(description.dwBufferBytes)
    , format_(*description.lpwfxFormat)
    , memory_(std::move(memory))
    , frequency_(description.lpwfxFormat->nSamplesPerSec)
{
    ++live;
}

SoundBuffer::~SoundBuffer()
{
    if (voice_ != 0)
        alDeleteSources(1, &voice_);
    if (samples_ != 0)
        alDeleteBuffers(1, &samples_);
    --live;
}

// False when the mixer has no more voices or memory.
bool SoundBuffer::makeVoice()
{
    alGetError();
    alGenBuffers(1, &samples_);
    alGenSources(1, &voice_);
    if (alGetError() != AL_NO_ERROR)
        return false;
    const auto samples = stereoSamples({ memory_.get(), size_ }, format_, {});
    alBufferData(samples_, AL_FORMAT_STEREO16, samples.data(),
        static_cast<ALsizei>(samples.size() * sizeof(samples[0])),
        static_cast<ALsizei>(format_.nSamplesPerSec));
    alSourcei(voice_, AL_BUFFER, static_cast<ALint>(samples_));
    alSourcei(voice_, AL_DIRECT_CHANNELS_SOFT, AL_TRUE); // left is left, and nothing is placed
    return alGetError() == AL_NO_ERROR;
}

bool SoundBuffer::isPlaying()
{
    if (!playing_)
        return false;
    ALint state = AL_STOPPED;
    alGetSourcei(voice_, AL_SOURCE_STATE, &state);
    if (state != AL_PLAYING) {
        playing_ = false;
        restFrame_ = 0;
    }
    return playing_;
}

DWORD SoundBuffer::playCursor()
{
    DWORD frame = restFrame_;
    if (isPlaying()) {
        ALint offset = 0;
        alGetSourcei(voice_, AL_SAMPLE_OFFSET, &offset);
        frame = static_cast<DWORD>(offset);
    }
    return frame * format_.nBlockAlign;
}

DWORD SoundBuffer::writeCursor()
{
    const DWORD play = playCursor();
    if (!playing_)
        return play;
    const DWORD lead = frequency_ * writeLeadMs / 1000 * format_.nBlockAlign;
    return static_cast<DWORD>((std::uint64_t { play } + lead) % size_);
}

HRESULT SoundBuffer::GetCaps(LPDSBCAPS caps)
{
    if (caps == nullptr || caps->dwSize != sizeof(DSBCAPS))
        return DSERR_INVALIDPARAM;
    *caps = { sizeof(DSBCAPS), flags_ | DSBCAPS_LOCSOFTWARE, size_, 0, 0 };
    return DS_OK;
}

HRESULT SoundBuffer::GetCurrentPosition(LPDWORD play, LPDWORD write)
{
    if (play == nullptr && write == nullptr)
        return DSERR_INVALIDPARAM;
    if (play != nullptr)
        *play = playCursor();
    if (write != nullptr)
        *write = writeCursor();
    return DS_OK;
}

HRESULT SoundBuffer::GetFormat(LPWAVEFORMATEX format, DWORD size, LPDWORD written)
{
    if (format == nullptr && written == nullptr)
        return DSERR_INVALIDPARAM;
    const DWORD count
        = format == nullptr ? DWORD { sizeof format_ } : std::min(size, DWORD { sizeof format_ });
    if (format != nullptr)
        std::memcpy(format, &format_, count);
    if (written != nullptr)
        *written = count;
    return DS_OK;
}

HRESULT SoundBuffer::GetVolume(LPLONG volume)
{
    if (volume == nullptr)
        return DSERR_INVALIDPARAM;
    if (!has(DSBCAPS_CTRLVOLUME))
        return DSERR_CONTROLUNAVAIL;
    *volume = volume_;
    return DS_OK;
}

HRESULT SoundBuffer::GetPan(LPLONG pan)
{
    if (pan == nullptr)
        return DSERR_INVALIDPARAM;
    if (!has(DSBCAPS_CTRLPAN))
        return DSERR_CONTROLUNAVAIL;
    *pan = pan_;
    return DS_OK;
}

HRESULT SoundBuffer::GetFrequency(LPDWORD frequency)
{
    if (frequency == nullptr)
        return DSERR_INVALIDPARAM;
    if (!has(DSBCAPS_CTRLFREQUENCY))
        return DSERR_CONTROLUNAVAIL;
    *frequency = frequency_;
    return DS_OK;
}

HRESULT SoundBuffer::GetStatus(LPDWORD status)
{
    if (status == nullptr)
        return DSERR_INVALIDPARAM;
    *status = 0;
    if (isPlaying())
        *status = DSBSTATUS_PLAYING | (looping_ ? DSBSTATUS_LOOPING : 0);
    return DS_OK;
}

HRESULT SoundBuffer::Play(DWORD reserved1, DWORD reserved2, DWORD flags)
{
    if (reserved1 != 0 || reserved2 != 0 || (flags & ~DSBPLAY_LOOPING) != 0)
        return DSERR_INVALIDPARAM;
    looping_ = (flags & DSBPLAY_LOOPING) != 0;
    alSourcei(voice_, AL_LOOPING, looping_ ? AL_TRUE : AL_FALSE);
    if (isPlaying())
        return DS_OK;
    alSourcei(voice_, AL_SAMPLE_OFFSET, static_cast<ALint>(restFrame_));
    alSourcePlay(voice_);
    playing_ = true;
    return DS_OK;
}

HRESULT SoundBuffer::SetCurrentPosition(DWORD position)
{
    if (position >= size_)
        return DSERR_INVALIDPARAM;
    const DWORD lastFrame = std::max<DWORD>(size_ / format_.nBlockAlign, 1) - 1;
    restFrame_ = std::min<DWORD>(position / format_.nBlockAlign, lastFrame);
    if (isPlaying())
        alSourcei(voice_, AL_SAMPLE_OFFSET, static_cast<ALint>(restFrame_));
    return DS_OK;
}

HRESULT SoundBuffer::SetVolume(LONG volume)
{
    if (volume < DSBVOLUME_MIN || volume > DSBVOLUME_MAX)
        return DSERR_INVALIDPARAM;
    if (!has(DSBCAPS_CTRLVOLUME))
        return DSERR_CONTROLUNAVAIL;
    volume_ = volume;
    alSourcef(voice_, AL_GAIN, gainOf(volume));
    return DS_OK;
}

HRESULT SoundBuffer::SetPan(LONG pan)
{
    if (pan < DSBPAN_LEFT || pan > DSBPAN_RIGHT)
        return DSERR_INVALIDPARAM;
    if (!has(DSBCAPS_CTRLPAN))
        return DSERR_CONTROLUNAVAIL;
    if (pan != std::exchange(pan_, pan))
        upload(0, size_);
    return DS_OK;
}

HRESULT SoundBuffer::SetFrequency(DWORD frequency)
{
    if (!has(DSBCAPS_CTRLFREQUENCY))
        return DSERR_CONTROLUNAVAIL;
    if (frequency == DSBFREQUENCY_ORIGINAL)
        frequency = format_.nSamplesPerSec;
    if (frequency < DSBFREQUENCY_MIN || frequency > DSBFREQUENCY_MAX)
        return DSERR_INVALIDPARAM;
    frequency_ = frequency;
    alSourcef(voice_, AL_PITCH,
        static_cast<float>(frequency) / static_cast<float>(format_.nSamplesPerSec));
    return DS_OK;
}

HRESULT SoundBuffer::Stop()
{
    restFrame_ = playCursor() / format_.nBlockAlign;
    alSourceStop(voice_);
    playing_ = false;
    return DS_OK;
}

int liveSoundBuffers()
{
    return SoundBuffer::live;
}

} // namespace kez::winapi
