// SPDX-License-Identifier: MIT
/// A loaded sound: its samples, decoded once into a static platform buffer that DirectSound plays
/// by itself, and its sync track. A sound that has no platform buffer (no device, a record that
/// could not be used) is silent and answers everything with 0.
#pragma once

#include "core/object.h"

#include <windows.h>

#include <mmsystem.h> // before dsound.h, which needs its wave formats

#include <dsound.h>

#include <cstdint>
#include <span>
#include <vector>

namespace kez {

/// The host's DirectSound object, borrowed; null: every sound is silent.
inline IDirectSound* directSound = nullptr;

class SoundBuffer : public Object {
public:
    explicit SoundBuffer(const String& name);
    ~SoundBuffer() override;

    /// Slot 5: the value of the sync track at this frame's time; the last one after the end, 0
    /// without a track.
    virtual std::uint8_t syncValue() const;

    /// Loads a record file with its sync track. False (and a diagnostic) only when the file does
    /// not open: a record that cannot be used makes a silent sound.
    bool loadFile(const char* path);

    /// Loads a record. False, with a diagnostic, when it cannot be used. No sync track.
    bool loadRecord(std::span<const std::uint8_t> record);

    std::uint32_t play(bool loop); ///< From the beginning. Returns `duration`.
    void stop();
    void unload(); ///< Stops and gives the platform buffer and the sync track back.

    [[nodiscard]] std::uint32_t duration() const; ///< Milliseconds, truncated.

    [[nodiscard]] bool isSilent() const { return buffer_ == nullptr; }

    [[nodiscard]] bool hasSyncTrack() const { return !syncValues_.empty(); }

    [[nodiscard]] bool loops() const { return loop_; }

private:
    bool takeFormat(std::span<const std::uint8_t> record);
    bool decode(std::span<const std::uint8_t> record, std::vector<std::uint8_t>& samples);
    [[nodiscard]] IDirectSoundBuffer* makePlatformBuffer() const;
    void createPlatformBuffer(std::span<const std::uint8_t> samples);
    void setSyncTrack(std::span<const std::uint8_t> record);

    std::uint32_t sampleLength_ = 0;
    std::uint32_t samplesPerSecond_ = 0;
    std::uint32_t bytesPerSample_ = 0;
    std::uint32_t channels_ = 0;
    std::uint32_t averageBytesPerSecond_ = 0;
    std::uint32_t startTime_ = 0; ///< `frameTime` of the last `play`.
    bool loop_ = false;
    std::uint16_t syncIntervalMs_ = 0;
    std::vector<std::uint8_t> syncValues_;
    IDirectSoundBuffer* buffer_ = nullptr; ///< Owned.
};

/// The documented description of a DirectSound result code.
String directSoundErrorText(HRESULT result);

} // namespace kez
