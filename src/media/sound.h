// SPDX-License-Identifier: MIT
/// A named sound. `attach` loads the file "audio\NAME.wv5" and `detach` unloads it, so a screen
/// that owns sounds has them loaded while it is current. Any number of sounds play at the same
/// time.
#pragma once

#include "core/service.h"
#include "media/resource_archive.h"
#include "media/sound_buffer.h"

namespace kez {

class Sound : public Service {
public:
    explicit Sound(const char* name); ///< Null: no name yet.

    List& registry() override; ///< The sound registry, whose nodes own the loaded buffers.
    void attach() override; ///< A file that is missing leaves the sound unloaded (diagnostic).
    void detach() override;

    virtual void play(bool loop); ///< Slot 11: from the beginning; nothing while unloaded.
    virtual void loadFromArchive(ResourceArchive& archive); ///< Slot 12: by the bare name.
    virtual void loadFromRecord(const std::uint8_t* record); ///< Slot 13: null is reported.

    void stop();
    [[nodiscard]] SoundBuffer* buffer() const; ///< Null while unloaded.

private:
    void registerBuffer(SoundBuffer* buffer);
};

} // namespace kez
