// SPDX-License-Identifier: MIT
#include "sound_output.h"

namespace kez::player {

ComPointer<IDirectSound> makeSoundOutput(HWND window)
{
    IDirectSound* made = nullptr;
    if (DirectSoundCreate(nullptr, &made, nullptr) != DS_OK)
        return nullptr;
    ComPointer<IDirectSound> sound(made);
    if (sound->SetCooperativeLevel(window, DSSCL_NORMAL) != DS_OK)
        return nullptr;
    return sound;
}

} // namespace kez::player
