// SPDX-License-Identifier: MIT
/// Where every DirectSound object plays: one output of the system's, opened by the first object
/// and closed with the last. Tests have it render into memory instead (control_sound.h).
#pragma once

#include <AL/alc.h>

#include <memory>

namespace kez::winapi {

class Mixer {
public:
    /// The one mixer; null when there is no output.
    [[nodiscard]] static std::shared_ptr<Mixer> shared();

    explicit Mixer(ALCdevice* device);
    ~Mixer();
    Mixer(const Mixer&) = delete;
    Mixer& operator=(const Mixer&) = delete;

    [[nodiscard]] bool works() const { return context_ != nullptr; }

    [[nodiscard]] ALCdevice* device() const { return device_; }

private:
    ALCdevice* device_;
    ALCcontext* context_ = nullptr;
};

} // namespace kez::winapi
