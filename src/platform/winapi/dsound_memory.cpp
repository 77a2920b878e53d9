// SPDX-License-Identifier: MIT
// A sound buffer's memory: locked, written by its owner and handed to the mixer.
#include "dsound_buffer.h"

#include "control_sound.h"
#include "stereo_samples.h"

#define AL_ALEXT_PROTOTYPES
#include <AL/alext.h>

#include <algorithm>
#include <functional>

namespace kez::winapi {

namespace {

constexpr std::size_t stereoFrameBytes = 2 * sizeof(std::int16_t);

} // namespace

HRESULT SoundBuffer::Lock(DWORD offset, DWORD bytes, LPVOID* first, LPDWORD firstBytes,
    LPVOID* second, LPDWORD secondBytes, DWORD flags)
{
    if (first == nullptr || firstBytes == nullptr)
        return DSERR_INVALIDPARAM;
    *first = nullptr;
    *firstBytes = 0;
    if (second != nullptr)
        *second = nullptr;
    if (secondBytes != nullptr)
        *secondBytes = 0;
    if ((flags & ~(DSBLOCK_FROMWRITECURSOR | DSBLOCK_ENTIREBUFFER)) != 0)
        return DSERR_INVALIDPARAM;
    if ((flags & DSBLOCK_FROMWRITECURSOR) != 0)
        offset = writeCursor();
    if ((flags & DSBLOCK_ENTIREBUFFER) != 0)
        bytes = size_;
    if (offset >= size_ || bytes == 0 || bytes > size_)
        return DSERR_INVALIDPARAM;
    *first = memory_.get() + offset;
    *firstBytes = std::min(bytes, size_ - offset);
    if (bytes > *firstBytes && second != nullptr && secondBytes != nullptr) {
        *second = memory_.get();
        *secondBytes = bytes - *firstBytes;
    }
    return DS_OK;
}

bool SoundBuffer::owns(const void* region, DWORD bytes) const
{
    const auto* start = static_cast<const BYTE*>(region);
    const BYTE* end = memory_.get() + size_;
    return std::greater_equal<> {}(start, memory_.get()) && std::less_equal<> {}(start, end)
        && bytes <= end - start;
}

HRESULT SoundBuffer::Unlock(LPVOID first, DWORD firstBytes, LPVOID second, DWORD secondBytes)
{
    if (first == nullptr || !owns(first, firstBytes)
        || (second != nullptr && !owns(second, secondBytes)))
        return DSERR_INVALIDPARAM;
    upload(static_cast<DWORD>(static_cast<BYTE*>(first) - memory_.get()), firstBytes);
    if (second != nullptr)
        upload(static_cast<DWORD>(static_cast<BYTE*>(second) - memory_.get()), secondBytes);
    return DS_OK;
}

// The frames that the bytes touch, as they are now. May be called while the voice plays them.
void SoundBuffer::upload(DWORD offset, DWORD bytes)
{
    const DWORD align = format_.nBlockAlign;
    const DWORD first = offset / align;
    const DWORD end = std::min((offset + bytes + align - 1) / align, size_ / align);
    if (first >= end)
        return;
    const auto samples = stereoSamples(
        { memory_.get() + first * align, (end - first) * align }, format_, gainsOf(pan_));
    alBufferSubDataSOFT(samples_, AL_FORMAT_STEREO16, samples.data(),
        static_cast<ALsizei>(first * stereoFrameBytes),
        static_cast<ALsizei>(samples.size() * sizeof(samples[0])));
}

} // namespace kez::winapi
