// SPDX-License-Identifier: MIT
/// A static DirectSound buffer: memory that its owner fills, and a voice of the mixer that plays
/// it. What is written while it plays is heard as soon as it is unlocked.
#pragma once

#include "com_object.h"
#include "dsound.h"
#include "mixer.h"

#include <AL/al.h>

#include <memory>
#include <span>

namespace kez::winapi {

class SoundBuffer final : public ComObject<IDirectSoundBuffer, &IID_IDirectSoundBuffer> {
public:
    /// A silent buffer. The description has been checked; the answer is DS_OK or what is missing.
    static HRESULT create(std::shared_ptr<Mixer> mixer, const DSBUFFERDESC1& description,
        LPDIRECTSOUNDBUFFER* buffer);

    HRESULT GetCaps(LPDSBCAPS caps) override;
    HRESULT GetCurrentPosition(LPDWORD play, LPDWORD write) override;
    HRESULT GetFormat(LPWAVEFORMATEX format, DWORD size, LPDWORD written) override;
    HRESULT GetVolume(LPLONG volume) override;
    HRESULT GetPan(LPLONG pan) override;
    HRESULT GetFrequency(LPDWORD frequency) override;
    HRESULT GetStatus(LPDWORD status) override;

    HRESULT Initialize(LPDIRECTSOUND, LPCDSBUFFERDESC) override { return DSERR_ALREADYINITIALIZED; }

    HRESULT Lock(DWORD offset, DWORD bytes, LPVOID* first, LPDWORD firstBytes, LPVOID* second,
        LPDWORD secondBytes, DWORD flags) override;
    HRESULT Play(DWORD reserved1, DWORD reserved2, DWORD flags) override;
    HRESULT SetCurrentPosition(DWORD position) override;

    /// Only a primary buffer's format can be set.
    HRESULT SetFormat(LPCWAVEFORMATEX) override { return DSERR_INVALIDCALL; }

    HRESULT SetVolume(LONG volume) override;
    HRESULT SetPan(LONG pan) override;
    HRESULT SetFrequency(DWORD frequency) override;
    HRESULT Stop() override;
    HRESULT Unlock(LPVOID first, DWORD firstBytes, LPVOID second, DWORD secondBytes) override;

    HRESULT Restore() override { return DS_OK; } ///< Memory of this layer is never lost.

    static int live; ///< Buffers that exist.

private:
    SoundBuffer(std::shared_ptr<Mixer> mixer, const DSBUFFERDESC1& description,
        std::unique_ptr<BYTE[]> memory);
    ~SoundBuffer() override;
    bool makeVoice();

    [[nodiscard]] bool has(DWORD control) const { return (flags_ & control) != 0; }

    bool isPlaying(); // Notices that the buffer has reached its end.
    DWORD playCursor();
    DWORD writeCursor();
    [[nodiscard]] bool owns(const void* region, DWORD bytes) const;
    void upload(DWORD offset, DWORD bytes);

    std::shared_ptr<Mixer> mixer_;
    DWORD flags_;
    DWORD size_;
    WAVEFORMATEX format_;
    std::unique_ptr<BYTE[]> memory_;
    ALuint samples_ = 0;
    ALuint voice_ = 0;
    LONG volume_ = DSBVOLUME_MAX;
    LONG pan_ = DSBPAN_CENTER;
    DWORD frequency_;
    DWORD restFrame_ = 0; // Where the next Play starts.
    bool playing_ = false;
    bool looping_ = false;
};

} // namespace kez::winapi
