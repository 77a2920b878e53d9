// SPDX-License-Identifier: MIT
/// A DirectSound that plays nothing and writes down what it is asked to play. It knows the sounds
/// that it made files of, each by a length that no other one has.
#pragma once

#include "core/clock.h"
#include "media/sound_buffer.h"
#include "media/sound_record_bytes.h"
#include "support/never_called.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace kez::test {

class SoundRecorder final : public IDirectSound {
public:
    /// Makes audio/NAME.wv5 in the current folder.
    void makeSound(const std::string& name)
    {
        const auto length = static_cast<DWORD>(1000 + names_.size());
        names_[length] = name;
        std::filesystem::create_directories("audio");
        const SoundRecord record { .packed = SoundBytes(length, 140) };
        std::ofstream("audio/" + name + ".wv5", std::ios::binary) << record.text();
    }

    /// The sounds that have begun since the last question, in order; "(loop)" behind those without
    /// end. One that is begun again in the same frame is heard once.
    std::vector<std::string> begun() { return std::exchange(begun_, {}); }

    /// Whether a sound was begun and neither stopped nor unloaded since.
    [[nodiscard]] bool plays(const std::string& name) const
    {
        return std::ranges::any_of(
            loaded_, [&](const Buffer* each) { return each->name == name && each->isPlaying; });
    }

    [[nodiscard]] std::size_t loaded() const { return loaded_.size(); }

    /// From now on every call to a buffer fails as when the device is gone.
    void lose() { lost_ = true; }

    HRESULT STDMETHODCALLTYPE CreateSoundBuffer(
        LPCDSBUFFERDESC description, LPDIRECTSOUNDBUFFER* buffer, IUnknown*) override
    {
        const auto known = names_.find(description->dwBufferBytes);
        const std::string name = known != names_.end() ? known->second : "unknown";
        *buffer = new Buffer(*this, name, description->dwBufferBytes);
        return DS_OK;
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, LPVOID*) override { return E_NOINTERFACE; }

    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }

    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    HRESULT STDMETHODCALLTYPE SetCooperativeLevel(HWND, DWORD) override { return DS_OK; }

    KEZ_NEVER_CALLED(GetCaps, LPDSCAPS);
    KEZ_NEVER_CALLED(DuplicateSoundBuffer, LPDIRECTSOUNDBUFFER, LPDIRECTSOUNDBUFFER*);
    KEZ_NEVER_CALLED(Compact);
    KEZ_NEVER_CALLED(GetSpeakerConfig, LPDWORD);
    KEZ_NEVER_CALLED(SetSpeakerConfig, DWORD);
    KEZ_NEVER_CALLED(Initialize, const GUID*);

private:
    class Buffer final : public IDirectSoundBuffer {
    public:
        Buffer(SoundRecorder& owner, std::string ownName, DWORD bytes)
            : name(std::move(ownName))
            , owner_(owner)
            , samples_(bytes)
        {
            owner_.loaded_.push_back(this);
        }

        ~Buffer() { std::erase(owner_.loaded_, this); }

        HRESULT STDMETHODCALLTYPE Lock(DWORD, DWORD bytes, LPVOID* first, LPDWORD firstBytes,
            LPVOID* second, LPDWORD secondBytes, DWORD) override
        {
            if (owner_.lost_)
                return DSERR_BUFFERLOST;
            *first = samples_.data();
            *firstBytes = bytes;
            *second = nullptr;
            *secondBytes = 0;
            return DS_OK;
        }

        HRESULT STDMETHODCALLTYPE Unlock(LPVOID, DWORD, LPVOID, DWORD) override { return result(); }

        HRESULT STDMETHODCALLTYPE Play(DWORD, DWORD, DWORD flags) override
        {
            if (owner_.lost_)
                return DSERR_BUFFERLOST;
            isPlaying = true;
            owner_.write(name + (flags == DSBPLAY_LOOPING ? " (loop)" : ""));
            return DS_OK;
        }

        HRESULT STDMETHODCALLTYPE Stop() override
        {
            isPlaying = false;
            return result();
        }

        HRESULT STDMETHODCALLTYPE SetCurrentPosition(DWORD) override { return result(); }

        HRESULT STDMETHODCALLTYPE SetVolume(LONG) override { return result(); }

        HRESULT STDMETHODCALLTYPE SetPan(LONG) override { return result(); }

        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, LPVOID*) override { return E_NOINTERFACE; }

        ULONG STDMETHODCALLTYPE AddRef() override { return 1; }

        ULONG STDMETHODCALLTYPE Release() override
        {
            delete this;
            return 0;
        }

        KEZ_NEVER_CALLED(GetCaps, LPDSBCAPS);
        KEZ_NEVER_CALLED(GetCurrentPosition, LPDWORD, LPDWORD);
        KEZ_NEVER_CALLED(GetFormat, LPWAVEFORMATEX, DWORD, LPDWORD);
        KEZ_NEVER_CALLED(GetVolume, LPLONG);
        KEZ_NEVER_CALLED(GetPan, LPLONG);
        KEZ_NEVER_CALLED(GetFrequency, LPDWORD);
        KEZ_NEVER_CALLED(GetStatus, LPDWORD);
        KEZ_NEVER_CALLED(Initialize, LPDIRECTSOUND, LPCDSBUFFERDESC);
        KEZ_NEVER_CALLED(SetFormat, LPCWAVEFORMATEX);
        KEZ_NEVER_CALLED(SetFrequency, DWORD);
        KEZ_NEVER_CALLED(Restore);

        const std::string name;
        bool isPlaying = false;

    private:
        [[nodiscard]] HRESULT result() const { return owner_.lost_ ? DSERR_BUFFERLOST : DS_OK; }

        SoundRecorder& owner_;
        std::vector<BYTE> samples_;
    };

    void write(const std::string& name)
    {
        if (begun_.empty() || begun_.back() != name || frameTime != latest_)
            begun_.push_back(name);
        latest_ = frameTime;
    }

    std::map<DWORD, std::string> names_;
    std::vector<const Buffer*> loaded_;
    std::vector<std::string> begun_;
    std::uint32_t latest_ = 0; ///< `frameTime` when a sound was begun last.
    bool lost_ = false;
};

} // namespace kez::test
