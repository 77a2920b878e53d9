// SPDX-License-Identifier: MIT
#include "media/sound.h"

#include "core/diagnostics.h"
#include "core/flags.h"
#include "core/little_endian.h"

#include <memory>
#include <new>

namespace kez {

Sound::Sound(const char* name)
{
    setName(name);
}

List& Sound::registry()
{
    // Never destroyed: static sounds leave it in any order at unload.
    static List& sounds = *new List;
    return sounds;
}

void Sound::attach()
{
    if (isRegistered())
        return;
    std::unique_ptr<SoundBuffer> loaded(new (std::nothrow) SoundBuffer(name()));
    String path;
    path.format("audio\\%s.wv5", name().c_str());
    if (loaded && loaded->loadFile(path.c_str()))
        registerBuffer(loaded.release());
}

void Sound::detach()
{
    if (!isRegistered() || quitting)
        return;
    buffer()->unload();
    Service::detach(); // destroys the node, which deletes the buffer
}

void Sound::registerBuffer(SoundBuffer* buffer)
{
    registration_ = registry().append(buffer);
    if (registration_ == nullptr)
        delete buffer;
}

SoundBuffer* Sound::buffer() const
{
    return registration_ != nullptr ? static_cast<SoundBuffer*>(registration_->item()) : nullptr;
}

void Sound::play(bool loop)
{
    if (isRegistered())
        buffer()->play(loop);
}

void Sound::stop()
{
    if (isRegistered())
        buffer()->stop();
}

void Sound::loadFromArchive(ResourceArchive& archive)
{
    loadFromRecord(archive.find(name().c_str()));
}

void Sound::loadFromRecord(const std::uint8_t* record)
{
    if (record == nullptr) {
        reportLastError("%s", name().c_str());
        return;
    }
    if (isRegistered())
        return;
    std::unique_ptr<SoundBuffer> loaded(new (std::nothrow) SoundBuffer(name()));
    if (loaded && loaded->loadRecord({ record, loadWord(record) }))
        registerBuffer(loaded.release());
}

} // namespace kez
