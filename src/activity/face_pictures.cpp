// SPDX-License-Identifier: MIT
#include "activity/face_pictures.h"

#include "display/canvas.h"
#include "media/resource_archive.h"

#include <algorithm>

namespace kez {

namespace {

constexpr int eyesPerReach = 9; // Both eyes are so many times as wide as they move to a side.

Image partOf(const Image& bearer, const char* part)
{
    String name = bearer.name();
    return { name.append(part).c_str(), true };
}

// Content need not have it, so nothing is reported.
bool isInArchive(const Image& part)
{
    String record = part.name();
    return archive() != nullptr && archive()->find(record.append(".sp5").c_str()) != nullptr;
}

} // namespace

FacePictures::FacePictures(const Image& bearer)
    : bearer_(bearer)
    , parts_ { partOf(bearer, "Ajar"), partOf(bearer, "Open"), partOf(bearer, "Blink"),
        partOf(bearer, "NoEyes"), partOf(bearer, "Eyes") }
{
}

void FacePictures::load()
{
    loaded_ = 0;
    for (Image& part : parts_) {
        if (!isInArchive(part))
            continue;
        part.realize();
        ++loaded_;
    }
}

void FacePictures::unload()
{
    for (Image& part : parts_)
        part.unrealize();
    loaded_ = 0;
}

void FacePictures::draw(const Expression& expression)
{
    drawEyes(expression);
    if (expression.mouth == Mouth::Ajar)
        drawItem(parts_[Ajar]);
    else if (expression.mouth == Mouth::Open)
        drawItem(parts_[Open]);
}

void FacePictures::drawEyes(const Expression& expression)
{
    Image& eyes = parts_[Eyes];
    if (expression.eyesShut) {
        drawItem(parts_[Blink]);
    } else if (expression.lookingAt) {
        const StagePoint step = glance({ eyes.baseX, eyes.baseY }, *expression.lookingAt,
            std::max(eyes.width / eyesPerReach, 1));
        eyes.x = eyes.baseX + step.x;
        eyes.y = eyes.baseY + step.y;
        drawItem(parts_[NoEyes]);
        drawItem(eyes);
    }
}

} // namespace kez
