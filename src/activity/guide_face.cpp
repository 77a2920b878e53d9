// SPDX-License-Identifier: MIT
#include "activity/guide_face.h"

#include "activity/guide.h"
#include "core/clock.h"

#include <algorithm>

namespace kez {

namespace {

bool speaks(const GuideClip& clip, std::uint32_t sinceMs)
{
    const SoundBuffer* const heard = clip.voice.buffer();
    const bool silent = heard == nullptr || heard->isSilent();
    return sinceMs < (silent ? unheardSpeechMs : heard->duration());
}

// A sound without a track, or without a device, does not tell how loud it is.
Mouth mouthOf(const GuideClip& clip, std::uint32_t sinceMs)
{
    const SoundBuffer* const heard = clip.voice.buffer();
    if (heard == nullptr || heard->isSilent() || !heard->hasSyncTrack())
        return murmur(sinceMs);
    return mouthFor(heard->syncValue());
}

// Mouth and eyes of the guide as it speaks, or at rest.
FacePictures::Expression speech()
{
    const GuideClip* const clip = guide().playing();
    const std::uint32_t sinceMs = frameTime - guide().startedAt();
    if (clip == nullptr || !speaks(*clip, sinceMs))
        return {};
    return { .mouth = mouthOf(*clip, sinceMs), .lookingAt = guide().subject() };
}

} // namespace

GuideFace::GuideFace()
    : View(0, 0, 0, 0, 0, false, false)
{
}

void GuideFace::addBearer(const Image& bearer)
{
    pictures_.emplace_back(bearer);
}

void GuideFace::show()
{
    for (FacePictures& each : pictures_)
        each.load();
    shownAt_ = frameTime;
    open();
}

void GuideFace::hide()
{
    close();
    for (FacePictures& each : pictures_)
        each.unload();
}

void GuideFace::draw()
{
    FacePictures* const face = shown();
    if (face == nullptr)
        return;
    auto expression = isForemost() ? speech() : FacePictures::Expression {};
    expression.eyesShut = blinks(frameTime - shownAt_);
    face->draw(expression);
}

FacePictures* GuideFace::shown()
{
    const auto front = std::find_if(pictures_.rbegin(), pictures_.rend(),
        [](const FacePictures& each) { return each.bearer().visible; });
    return front != pictures_.rend() && !front->empty() ? &*front : nullptr;
}

// Of two guides on the screen, one on a popup, only that one speaks.
bool GuideFace::isForemost()
{
    for (List* node = displayList().last(); node != nullptr; node = node->prev()) {
        auto* const face = dynamic_cast<GuideFace*>(node->item());
        if (face != nullptr && face->shown() != nullptr)
            return face == this;
    }
    return false;
}

} // namespace kez
