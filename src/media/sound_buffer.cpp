// SPDX-License-Identifier: MIT
#include "media/sound_buffer.h"

#include "core/clock.h"
#include "core/diagnostics.h"
#include "media/delta4.h"
#include "media/sound_record.h"
#include "platform/files.h"

#include <algorithm>
#include <cstring>

namespace kez {

namespace {

// More is no sound of ours; it keeps the products below from wrapping.
constexpr std::uint32_t mostChannels = 16;
constexpr std::uint32_t highestRate = 1'000'000;

/// 1 for 8 bits, 2 for 16, 0 for what is not supported.
std::uint32_t sampleBytes(std::uint32_t bits)
{
    return bits == 8 ? 1 : bits == 16 ? 2 : 0;
}

} // namespace

SoundBuffer::SoundBuffer(const String& name)
{
    name_ = name;
}

SoundBuffer::~SoundBuffer()
{
    unload();
}

bool SoundBuffer::loadFile(const char* path)
{
    const auto record = files::read(path);
    if (!record) {
        debugPrint("Sound %s not found.", path);
        return false;
    }
    if (loadRecord(*record))
        setSyncTrack(*record);
    return true;
}

bool SoundBuffer::loadRecord(std::span<const std::uint8_t> record)
{
    std::vector<std::uint8_t> samples;
    if (!takeFormat(record) || !decode(record, samples)) {
        unload();
        return false;
    }
    createPlatformBuffer(samples);
    return true;
}

bool SoundBuffer::takeFormat(std::span<const std::uint8_t> record)
{
    const auto header = readSoundHeader(record);
    if (!header) {
        debugPrint("Sound %s not loaded: the record ends within its header.", name_.c_str());
        return false;
    }
    bytesPerSample_ = sampleBytes(header->bitsPerSample);
    if (bytesPerSample_ == 0) {
        debugPrint("Sound %s not loaded: MonoOrStereo %d not supported.", name_.c_str(), 0);
        return false;
    }
    channels_ = header->channels;
    if (bytesPerSample_ * channels_ == 2) {
        debugPrint("Sound %s not loaded: 16bit sound not supported.", name_.c_str());
        return false;
    }
    samplesPerSecond_ = header->samplesPerSecond;
    sampleLength_ = header->sampleLength;
    if (channels_ == 0 || channels_ > mostChannels || samplesPerSecond_ == 0
        || samplesPerSecond_ > highestRate || sampleLength_ > longestSample) {
        debugPrint("Sound %s not loaded: %u channels, %u samples a second and %u bytes make no "
                   "sound.",
            name_.c_str(), channels_, samplesPerSecond_, sampleLength_);
        return false;
    }
    averageBytesPerSecond_ = bytesPerSample_ * channels_ * samplesPerSecond_;
    return true;
}

bool SoundBuffer::decode(std::span<const std::uint8_t> record, std::vector<std::uint8_t>& samples)
{
    const SoundHeader header = *readSoundHeader(record);
    if (header.encoding != plainEncoding && header.encoding != deltaEncoding)
        return false;
    const auto packed = soundBlock(record, header);
    if (!packed || (header.encoding == plainEncoding && packed->size() < sampleLength_)
        || (header.encoding == deltaEncoding && packed->size() < delta4TableSize)) {
        debugPrint("Sound %s not loaded: its samples do not lie within the record.", name_.c_str());
        return false;
    }
    if (header.encoding == plainEncoding) {
        samples.assign(packed->begin(), packed->begin() + static_cast<int>(sampleLength_));
        return true;
    }
    samples.resize(sampleLength_);
    expandDelta4(*packed, samples);
    return true;
}

// Null, with a report, when the device gives none.
IDirectSoundBuffer* SoundBuffer::makePlatformBuffer() const
{
    const std::uint32_t frameBytes = bytesPerSample_ * channels_;
    WAVEFORMATEX format = {};
    format.wFormatTag = WAVE_FORMAT_PCM;
    format.nChannels = static_cast<WORD>(channels_);
    format.nSamplesPerSec = samplesPerSecond_;
    format.nAvgBytesPerSec = averageBytesPerSecond_;
    format.nBlockAlign = 1;
    format.wBitsPerSample = static_cast<WORD>(8 * frameBytes);

    // The first form of the description, which every version of the system takes.
    DSBUFFERDESC1 description = {};
    description.dwSize = sizeof description;
    description.dwFlags
        = DSBCAPS_STATIC | DSBCAPS_CTRLFREQUENCY | DSBCAPS_CTRLPAN | DSBCAPS_CTRLVOLUME;
    description.dwBufferBytes = sampleLength_;
    description.lpwfxFormat = &format;

    IDirectSoundBuffer* buffer = nullptr;
    const HRESULT result = directSound->CreateSoundBuffer(
        reinterpret_cast<DSBUFFERDESC*>(&description), &buffer, nullptr);
    if (SUCCEEDED(result) && buffer != nullptr)
        return buffer;
    reportLastError("%s", directSoundErrorText(result).c_str());
    return nullptr;
}

void SoundBuffer::createPlatformBuffer(std::span<const std::uint8_t> samples)
{
    IDirectSoundBuffer* const buffer = directSound != nullptr ? makePlatformBuffer() : nullptr;
    if (buffer == nullptr)
        return;
    void* region = nullptr;
    void* rest = nullptr;
    DWORD regionBytes = 0;
    DWORD restBytes = 0;
    const HRESULT result
        = buffer->Lock(0, sampleLength_, &region, &regionBytes, &rest, &restBytes, 0);
    if (FAILED(result)) {
        reportLastError("%s", directSoundErrorText(result).c_str());
        buffer->Release();
        return;
    }
    std::memcpy(region, samples.data(), std::min<std::size_t>(regionBytes, samples.size()));
    buffer->Unlock(region, regionBytes, rest, restBytes);
    buffer->SetVolume(0);
    buffer->SetPan(0);
    buffer_ = buffer;
}

void SoundBuffer::setSyncTrack(std::span<const std::uint8_t> record)
{
    const SoundHeader header = *readSoundHeader(record);
    if (header.syncOffset == 0)
        return;
    const auto track = soundSyncTrack(record, header);
    if (!track) {
        debugPrint(
            "Sound %s is silent: its sync track does not lie within the record.", name_.c_str());
        unload();
        return;
    }
    syncIntervalMs_ = track->intervalMs;
    syncValues_.assign(track->values.begin(), track->values.end());
}

std::uint32_t SoundBuffer::play(bool loop)
{
    if (buffer_ == nullptr)
        return 0;
    loop_ = loop;
    buffer_->Stop();
    buffer_->SetCurrentPosition(0);
    buffer_->Play(0, 0, loop ? DSBPLAY_LOOPING : 0);
    startTime_ = frameTime;
    return duration();
}

void SoundBuffer::stop()
{
    if (buffer_ != nullptr)
        buffer_->Stop();
}

std::uint32_t SoundBuffer::duration() const
{
    if (buffer_ == nullptr)
        return 0;
    return static_cast<std::uint32_t>(
        std::uint64_t { sampleLength_ } * 1000 / averageBytesPerSecond_);
}

std::uint8_t SoundBuffer::syncValue() const
{
    if (buffer_ == nullptr || syncValues_.empty() || syncIntervalMs_ == 0)
        return 0;
    const std::uint32_t nearest = (frameTime - startTime_ + syncIntervalMs_ / 2u) / syncIntervalMs_;
    return syncValues_[std::min<std::size_t>(nearest, syncValues_.size() - 1)];
}

void SoundBuffer::unload()
{
    stop();
    if (buffer_ != nullptr)
        buffer_->Release();
    buffer_ = nullptr;
    syncValues_.clear();
}

} // namespace kez
