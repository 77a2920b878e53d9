// SPDX-License-Identifier: MIT
#include "dsound_buffer.h"
#include "mixer.h"
#include "window.h"

#include <new>
#include <utility>

const IID IID_IDirectSound { 0x279AFA83, 0x4981, 0x11CE,
    { 0xA5, 0x21, 0x00, 0x20, 0xAF, 0x0B, 0xE5, 0x60 } };
const IID IID_IDirectSoundBuffer { 0x279AFA85, 0x4981, 0x11CE,
    { 0xA5, 0x21, 0x00, 0x20, 0xAF, 0x0B, 0xE5, 0x60 } };

namespace kez::winapi {

namespace {

constexpr DWORD knownFlags = DSBCAPS_PRIMARYBUFFER | DSBCAPS_STATIC | DSBCAPS_LOCSOFTWARE
    | DSBCAPS_CTRLDEFAULT | DSBCAPS_GLOBALFOCUS | DSBCAPS_GETCURRENTPOSITION2;

bool canBePlayed(const WAVEFORMATEX& format)
{
    return format.wFormatTag == WAVE_FORMAT_PCM && (format.nChannels == 1 || format.nChannels == 2)
        && (format.wBitsPerSample == 8 || format.wBitsPerSample == 16)
        && format.nBlockAlign == format.nChannels * format.wBitsPerSample / 8
        && format.nSamplesPerSec >= DSBFREQUENCY_MIN && format.nSamplesPerSec <= DSBFREQUENCY_MAX;
}

HRESULT check(const DSBUFFERDESC1& description)
{
    if (description.dwSize != sizeof(DSBUFFERDESC1) && description.dwSize != sizeof(DSBUFFERDESC))
        return DSERR_INVALIDPARAM;
    if ((description.dwFlags & ~knownFlags) != 0 || description.dwReserved != 0)
        return DSERR_INVALIDPARAM;
    if ((description.dwFlags & DSBCAPS_PRIMARYBUFFER) != 0)
        return DSERR_UNSUPPORTED;
    if (description.lpwfxFormat == nullptr || description.dwBufferBytes < DSBSIZE_MIN
        || description.dwBufferBytes > DSBSIZE_MAX)
        return DSERR_INVALIDPARAM;
    return canBePlayed(*description.lpwfxFormat) ? DS_OK : DSERR_BADFORMAT;
}

class DirectSound final : public ComObject<IDirectSound, &IID_IDirectSound> {
public:
    explicit DirectSound(std::shared_ptr<Mixer> mixer)
        : mixer_(std::move(mixer))
    {
    }

    HRESULT CreateSoundBuffer(
        LPCDSBUFFERDESC description, LPDIRECTSOUNDBUFFER* buffer, IUnknown* outer) override
    {
        if (buffer == nullptr)
            return DSERR_INVALIDPARAM;
        *buffer = nullptr;
        if (outer != nullptr)
            return DSERR_NOAGGREGATION;
        if (description == nullptr)
            return DSERR_INVALIDPARAM;
        if (!hasLevel_)
            return DSERR_PRIOLEVELNEEDED;
        // The longer form only adds to the end of the older one.
        const auto& wanted = *reinterpret_cast<const DSBUFFERDESC1*>(description);
        const HRESULT result = check(wanted);
        return result == DS_OK ? SoundBuffer::create(mixer_, wanted, buffer) : result;
    }

    HRESULT SetCooperativeLevel(HWND window, DWORD level) override
    {
        if (windowOf(window) == nullptr || level < DSSCL_NORMAL || level > DSSCL_EXCLUSIVE)
            return DSERR_INVALIDPARAM;
        hasLevel_ = true;
        return DS_OK;
    }

    HRESULT GetCaps(LPDSCAPS) override { return DSERR_UNSUPPORTED; }

    HRESULT DuplicateSoundBuffer(LPDIRECTSOUNDBUFFER, LPDIRECTSOUNDBUFFER*) override
    {
        return DSERR_UNSUPPORTED;
    }

    HRESULT Compact() override { return DSERR_PRIOLEVELNEEDED; }

    HRESULT GetSpeakerConfig(LPDWORD) override { return DSERR_UNSUPPORTED; }

    HRESULT SetSpeakerConfig(DWORD) override { return DSERR_UNSUPPORTED; }

    HRESULT Initialize(const GUID*) override { return DSERR_ALREADYINITIALIZED; }

private:
    ~DirectSound() override = default;

    std::shared_ptr<Mixer> mixer_;
    bool hasLevel_ = false;
};

} // namespace

} // namespace kez::winapi

HRESULT WINAPI DirectSoundCreate(const GUID* device, LPDIRECTSOUND* sound, IUnknown* outer)
{
    using namespace kez::winapi;
    if (sound == nullptr)
        return DSERR_INVALIDPARAM;
    *sound = nullptr;
    if (outer != nullptr)
        return DSERR_NOAGGREGATION;
    if (device != nullptr) // only the default output can be had
        return DSERR_NODRIVER;
    std::shared_ptr<Mixer> mixer = Mixer::shared();
    if (mixer == nullptr)
        return DSERR_NODRIVER;
    *sound = new (std::nothrow) DirectSound(std::move(mixer));
    return *sound != nullptr ? DS_OK : DSERR_OUTOFMEMORY;
}
