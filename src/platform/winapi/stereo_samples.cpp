// SPDX-License-Identifier: MIT
#include "stereo_samples.h"

#include <cmath>
#include <cstring>

namespace kez::winapi {

namespace {

int sampleAt(const BYTE* place, int bytes)
{
    if (bytes == 1)
        return (*place - 128) * 256;
    std::int16_t sample = 0;
    std::memcpy(&sample, place, sizeof sample);
    return sample;
}

std::int16_t scaled(int sample, float gain)
{
    return static_cast<std::int16_t>(std::lround(static_cast<float>(sample) * gain));
}

} // namespace

float gainOf(LONG hundredthsOfDecibel)
{
    if (hundredthsOfDecibel <= DSBVOLUME_MIN)
        return 0;
    return std::pow(10.0f, static_cast<float>(hundredthsOfDecibel) / 2000.0f);
}

SideGains gainsOf(LONG pan)
{
    if (pan > 0)
        return { gainOf(-pan), 1 };
    return { 1, gainOf(pan) };
}

std::vector<std::int16_t> stereoSamples(
    std::span<const BYTE> frames, const WAVEFORMATEX& format, SideGains gains)
{
    const int bytes = format.wBitsPerSample / 8;
    const int right = format.nChannels == 2 ? bytes : 0;
    const std::size_t frameBytes = format.nBlockAlign;
    std::vector<std::int16_t> samples;
    samples.reserve(frames.size() / frameBytes * 2);
    for (std::size_t at = 0; at + frameBytes <= frames.size(); at += frameBytes) {
        samples.push_back(scaled(sampleAt(&frames[at], bytes), gains.left));
        samples.push_back(scaled(sampleAt(&frames[at] + right, bytes), gains.right));
    }
    return samples;
}

} // namespace kez::winapi
