// SPDX-License-Identifier: MIT
#include "activity/guide.h"

#include "core/clock.h"
#include "display/graphic.h"

namespace kez {

namespace {

constexpr int clipCount = 29;

Guide theGuide;

} // namespace

GuideClip::GuideClip(std::int32_t id, const char* sound)
    : clipId(id)
    , soundName(sound)
    , voice(nullptr)
{
}

Guide::Guide()
{
    String sound;
    for (int i = 0; i < clipCount; ++i) {
        sound.format("kez%02d", i);
        append(new GuideClip(i == 0 ? clip::help : i, sound.c_str()));
    }
}

void Guide::playClip(std::int32_t kind, std::int32_t clipId)
{
    for (List* node = first(); node != nullptr; node = node->next()) {
        auto* found = static_cast<GuideClip*>(node->item());
        if (found->kind != kind || found->clipId != clipId)
            continue;
        unloadPlaying();
        playing_ = found;
        startedAt_ = frameTime;
        subject_.reset();
        found->voice.setName(found->soundName.c_str());
        found->voice.attach();
        found->voice.play(false);
        const SoundBuffer* heard = found->voice.buffer();
        if (listener_ != nullptr)
            listener_(clipId, heard != nullptr ? heard->duration() : 0);
        return;
    }
}

void Guide::stop()
{
    if (playing_ == nullptr)
        return;
    unloadPlaying();
    if (listener_ != nullptr)
        listener_(0, 0);
}

void Guide::unloadPlaying()
{
    if (playing_ == nullptr)
        return;
    playing_->voice.stop();
    playing_->voice.detach();
    playing_ = nullptr;
}

Guide& guide()
{
    return theGuide;
}

void sayGuide(int clipId)
{
    guide().playClip(0, clipId);
}

void explain(const Graphic& thing, int clipId)
{
    sayGuide(clipId);
    guide().setSubject({ (thing.left() + thing.right()) / 2, (thing.top() + thing.bottom()) / 2 });
}

void stopGuide()
{
    guide().stop();
}

} // namespace kez
