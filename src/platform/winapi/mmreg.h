// SPDX-License-Identifier: MIT
/// How sampled sound is laid out.
#pragma once

#include "windef.h"

#define WAVE_FORMAT_PCM 1

#pragma pack(push, 1)

struct WAVEFORMATEX {
    WORD wFormatTag;
    WORD nChannels;
    DWORD nSamplesPerSec;
    DWORD nAvgBytesPerSec;
    WORD nBlockAlign;
    WORD wBitsPerSample;
    WORD cbSize;
};

#pragma pack(pop)
using LPWAVEFORMATEX = WAVEFORMATEX*;
using LPCWAVEFORMATEX = const WAVEFORMATEX*;

static_assert(sizeof(WAVEFORMATEX) == 18);
