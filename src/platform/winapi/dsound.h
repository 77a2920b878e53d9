// SPDX-License-Identifier: MIT
/// DirectSound, version 1: a device and its static buffers of sampled sound. There is no primary
/// buffer, and buffers cannot be duplicated (DSERR_UNSUPPORTED).
#pragma once

#include "windef.h"

#include "mmreg.h"
#include "unknwn.h"

struct IDirectSound;
struct IDirectSoundBuffer;
using LPDIRECTSOUND = IDirectSound*;
using LPDIRECTSOUNDBUFFER = IDirectSoundBuffer*;

extern const IID IID_IDirectSound;
extern const IID IID_IDirectSoundBuffer;

#define _FACDS 0x878
#define MAKE_DSHRESULT(code) (static_cast<HRESULT>(0x80000000u | (_FACDS << 16) | (code)))

#define DS_OK S_OK
#define DSERR_ALLOCATED MAKE_DSHRESULT(10)
#define DSERR_CONTROLUNAVAIL MAKE_DSHRESULT(30)
#define DSERR_INVALIDPARAM E_INVALIDARG
#define DSERR_INVALIDCALL MAKE_DSHRESULT(50)
#define DSERR_GENERIC E_FAIL
#define DSERR_PRIOLEVELNEEDED MAKE_DSHRESULT(70)
#define DSERR_OUTOFMEMORY E_OUTOFMEMORY
#define DSERR_BADFORMAT MAKE_DSHRESULT(100)
#define DSERR_UNSUPPORTED E_NOTIMPL
#define DSERR_NODRIVER MAKE_DSHRESULT(120)
#define DSERR_ALREADYINITIALIZED MAKE_DSHRESULT(130)
#define DSERR_BUFFERLOST MAKE_DSHRESULT(150)
#define DSERR_OTHERAPPHASPRIO MAKE_DSHRESULT(160)
#define DSERR_UNINITIALIZED MAKE_DSHRESULT(170)
#define DSERR_NOINTERFACE E_NOINTERFACE
#define DSERR_NOAGGREGATION (static_cast<HRESULT>(0x80040110u))

#define DSSCL_NORMAL 1u
#define DSSCL_PRIORITY 2u
#define DSSCL_EXCLUSIVE 3u

#define DSBCAPS_PRIMARYBUFFER 0x00000001u
#define DSBCAPS_STATIC 0x00000002u
#define DSBCAPS_LOCSOFTWARE 0x00000008u
#define DSBCAPS_CTRLFREQUENCY 0x00000020u
#define DSBCAPS_CTRLPAN 0x00000040u
#define DSBCAPS_CTRLVOLUME 0x00000080u
#define DSBCAPS_CTRLDEFAULT 0x000000E0u
#define DSBCAPS_GLOBALFOCUS 0x00008000u
#define DSBCAPS_GETCURRENTPOSITION2 0x00010000u

#define DSBPLAY_LOOPING 0x00000001u

#define DSBSTATUS_PLAYING 0x00000001u
#define DSBSTATUS_BUFFERLOST 0x00000002u
#define DSBSTATUS_LOOPING 0x00000004u

#define DSBLOCK_FROMWRITECURSOR 0x00000001u
#define DSBLOCK_ENTIREBUFFER 0x00000002u

#define DSBVOLUME_MIN (-10000)
#define DSBVOLUME_MAX 0
#define DSBPAN_LEFT (-10000)
#define DSBPAN_CENTER 0
#define DSBPAN_RIGHT 10000

#define DSBFREQUENCY_ORIGINAL 0u
#define DSBFREQUENCY_MIN 100u
#define DSBFREQUENCY_MAX 200000u

#define DSBSIZE_MIN 4u
#define DSBSIZE_MAX 0x0FFFFFFFu

/// The form without the 3D algorithm, which old callers use: 20 bytes on 32-bit systems.
struct DSBUFFERDESC1 {
    DWORD dwSize;
    DWORD dwFlags;
    DWORD dwBufferBytes;
    DWORD dwReserved;
    LPWAVEFORMATEX lpwfxFormat;
};

struct DSBUFFERDESC {
    DWORD dwSize;
    DWORD dwFlags;
    DWORD dwBufferBytes;
    DWORD dwReserved;
    LPWAVEFORMATEX lpwfxFormat;
    GUID guid3DAlgorithm;
};

using LPDSBUFFERDESC = DSBUFFERDESC*;
using LPCDSBUFFERDESC = const DSBUFFERDESC*;

struct DSBCAPS {
    DWORD dwSize;
    DWORD dwFlags;
    DWORD dwBufferBytes;
    DWORD dwUnlockTransferRate;
    DWORD dwPlayCpuOverhead;
};

using LPDSBCAPS = DSBCAPS*;

struct DSCAPS;
using LPDSCAPS = DSCAPS*;

struct IDirectSound : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE CreateSoundBuffer(
        LPCDSBUFFERDESC description, LPDIRECTSOUNDBUFFER* buffer, IUnknown* outer)
        = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCaps(LPDSCAPS caps) = 0;
    virtual HRESULT STDMETHODCALLTYPE DuplicateSoundBuffer(
        LPDIRECTSOUNDBUFFER original, LPDIRECTSOUNDBUFFER* copy)
        = 0;
    virtual HRESULT STDMETHODCALLTYPE SetCooperativeLevel(HWND window, DWORD level) = 0;
    virtual HRESULT STDMETHODCALLTYPE Compact() = 0;
    virtual HRESULT STDMETHODCALLTYPE GetSpeakerConfig(LPDWORD config) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetSpeakerConfig(DWORD config) = 0;
    virtual HRESULT STDMETHODCALLTYPE Initialize(const GUID* device) = 0;
};

struct IDirectSoundBuffer : IUnknown {
    virtual HRESULT STDMETHODCALLTYPE GetCaps(LPDSBCAPS caps) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetCurrentPosition(LPDWORD play, LPDWORD write) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetFormat(LPWAVEFORMATEX format, DWORD size, LPDWORD written)
        = 0;
    virtual HRESULT STDMETHODCALLTYPE GetVolume(LPLONG volume) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetPan(LPLONG pan) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetFrequency(LPDWORD frequency) = 0;
    virtual HRESULT STDMETHODCALLTYPE GetStatus(LPDWORD status) = 0;
    virtual HRESULT STDMETHODCALLTYPE Initialize(LPDIRECTSOUND device, LPCDSBUFFERDESC description)
        = 0;
    virtual HRESULT STDMETHODCALLTYPE Lock(DWORD offset, DWORD bytes, LPVOID* first,
        LPDWORD firstBytes, LPVOID* second, LPDWORD secondBytes, DWORD flags)
        = 0;
    virtual HRESULT STDMETHODCALLTYPE Play(DWORD reserved1, DWORD reserved2, DWORD flags) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetCurrentPosition(DWORD position) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFormat(LPCWAVEFORMATEX format) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetVolume(LONG volume) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetPan(LONG pan) = 0;
    virtual HRESULT STDMETHODCALLTYPE SetFrequency(DWORD frequency) = 0;
    virtual HRESULT STDMETHODCALLTYPE Stop() = 0;
    virtual HRESULT STDMETHODCALLTYPE Unlock(
        LPVOID first, DWORD firstBytes, LPVOID second, DWORD secondBytes)
        = 0;
    virtual HRESULT STDMETHODCALLTYPE Restore() = 0;
};

extern "C" {

/// The default output only. DSERR_NODRIVER when the computer has none.
HRESULT WINAPI DirectSoundCreate(const GUID* device, LPDIRECTSOUND* sound, IUnknown* outer);

} // extern "C"
