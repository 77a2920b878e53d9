// SPDX-License-Identifier: MIT
#include "mixer.h"

#include "control_sound.h"

#define AL_ALEXT_PROTOTYPES
#include <AL/alext.h>

#include <cstdlib>
#include <new>

namespace kez::winapi {

namespace {

enum class Output { Device, Memory, None };

struct Choice {
    Output output = Output::Device;
    int samplesPerSecond = 0;
};

Choice chosen;
std::weak_ptr<Mixer> current;

// More than plays at a time: every buffer holds one from its making to its release.
constexpr ALCint mostSources = 1024;

ALCdevice* openChosen()
{
    switch (chosen.output) {
    case Output::Device:
        return alcOpenDevice(nullptr);
    case Output::Memory:
        return alcLoopbackOpenDeviceSOFT(nullptr);
    case Output::None:
        break;
    }
    return nullptr;
}

ALCcontext* createContext(ALCdevice* device)
{
    const ALCint ofDevice[] = { ALC_STEREO_SOURCES, mostSources, ALC_HRTF_SOFT, ALC_FALSE, 0 };
    const ALCint ofMemory[] = { ALC_STEREO_SOURCES, mostSources, ALC_HRTF_SOFT, ALC_FALSE,
        ALC_FORMAT_CHANNELS_SOFT, ALC_STEREO_SOFT, ALC_FORMAT_TYPE_SOFT, ALC_SHORT_SOFT,
        ALC_FREQUENCY, chosen.samplesPerSecond, ALC_OUTPUT_LIMITER_SOFT, ALC_FALSE, 0 };
    return alcCreateContext(device, chosen.output == Output::Memory ? ofMemory : ofDevice);
}

} // namespace

std::shared_ptr<Mixer> Mixer::shared()
{
    if (std::shared_ptr<Mixer> mixer = current.lock())
        return mixer;
    ALCdevice* device = openChosen();
    if (device == nullptr)
        return nullptr;
    auto mixer = std::make_shared<Mixer>(device);
    if (!mixer->works())
        return nullptr;
    current = mixer;
    return mixer;
}

Mixer::Mixer(ALCdevice* device)
    : device_(device)
    , context_(createContext(device))
{
    if (context_ != nullptr)
        alcMakeContextCurrent(context_);
}

Mixer::~Mixer()
{
    if (context_ != nullptr) {
        alcMakeContextCurrent(nullptr);
        alcDestroyContext(context_);
    }
    alcCloseDevice(device_);
}

bool useLoopback(int samplesPerSecond)
{
    // Nothing but memory is played to: the mixer need not look for outputs, which takes time.
    setenv("ALSOFT_DRIVERS", "null", 0);
    if (alcIsExtensionPresent(nullptr, "ALC_SOFT_loopback") == ALC_FALSE)
        return false;
    chosen = { Output::Memory, samplesPerSecond };
    return true;
}

void useNoSoundDevice()
{
    chosen = { Output::None };
}

void useSoundDevice()
{
    chosen = {};
}

std::vector<std::int16_t> renderSamples(int frames)
{
    std::vector<std::int16_t> samples(static_cast<std::size_t>(frames) * 2);
    const std::shared_ptr<Mixer> mixer = current.lock();
    if (mixer != nullptr && chosen.output == Output::Memory)
        alcRenderSamplesSOFT(mixer->device(), samples.data(), frames);
    return samples;
}

} // namespace kez::winapi
