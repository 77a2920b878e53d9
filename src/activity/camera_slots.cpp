// SPDX-License-Identifier: MIT
#include "activity/camera_slots.h"

#include "activity/guide.h"
#include "activity/picture_names.h"
#include "activity/stored_files.h"
#include "activity/stored_pictures.h"
#include "core/diagnostics.h"
#include "media/camera.h"
#include "platform/files.h"

#include <algorithm>
#include <array>

namespace kez {

namespace {

struct FileKind {
    const char* directory;
    const char* extension;
};

constexpr FileKind pictureFiles { "photo", "cam" };
constexpr FileKind clipFiles { "clipboard", "clip" };

std::array<CameraSlot, slotCount>& slots()
{
    static std::array<CameraSlot, slotCount> all;
    return all;
}

// What an earlier visit has left in the slot's files must not pass for a picture of this one.
void dropFiles(const String& name)
{
    for (const FileKind& kind : { pictureFiles, clipFiles })
        deleteStoredFile(makePath(kind.directory, name.c_str(), kind.extension));
}

// True as well when there is nothing to copy.
bool copyPictureFile(const FileKind& kind, const String& from, const String& to)
{
    const String source = makePath(kind.directory, from.c_str(), kind.extension);
    if (!files::exists(source.view()))
        return true;
    const String& place = makePath(kind.directory, to.c_str(), kind.extension);
    if (copyStoredFile(source, place))
        return true;
    reportLastError("The picture cannot be saved as %.600s.", place.c_str());
    return false;
}

bool saveSlot(int index)
{
    const String from = temporaryName(index + 1);
    String to;
    makeNumberedName(to, "Photo", cameraSlot(index).fileNumber);
    return copyPictureFile(pictureFiles, from, to) && copyPictureFile(clipFiles, from, to);
}

} // namespace

CameraSlot& cameraSlot(int index)
{
    return slots().at(static_cast<std::size_t>(index));
}

int picturesTaken()
{
    return static_cast<int>(std::ranges::count_if(slots(), &CameraSlot::taken));
}

void resetSlots()
{
    int first = 1;
    for (CameraSlot& slot : slots()) {
        slot = { .fileNumber = findFreeNumber("Photo", first, "cam") };
        first = slot.fileNumber + 1;
    }
}

int storeTakenPicture(const std::uint8_t* picture)
{
    const auto slot = std::ranges::find(slots(), false, &CameraSlot::taken);
    if (slot == slots().end())
        return -1;
    const int index = static_cast<int>(slot - slots().begin());
    const String name = temporaryName(index + 1);
    if (!savePhoto(name.c_str(), picture, Camera::pictureWidth, Camera::pictureHeight, nullptr,
            pictureFiles.directory))
        dropFiles(name);
    slot->taken = true;
    unsavedPictures = true;
    return index;
}

void saveTakenPictures()
{
    unsavedPictures = false;
    for (int i = 0; i < slotCount; ++i) {
        CameraSlot& slot = cameraSlot(i);
        if (!slot.taken)
            continue;
        slot.saved = saveSlot(i);
        unsavedPictures |= !slot.saved;
    }
    sayGuide(unsavedPictures ? clip::notStored : clip::saved);
}

void requestSave()
{
    if (!unsavedPictures)
        return sayGuide(clip::nothingToSave);
    hasRoomNow = hasRoom(0);
    if (hasRoomNow)
        saveTakenPictures();
}

bool forgetSlot(int index)
{
    CameraSlot& slot = cameraSlot(index);
    if (!slot.taken)
        return false;
    slot.taken = false;
    slot.saved = false;
    if (picturesTaken() == 0)
        unsavedPictures = false;
    return true;
}

} // namespace kez
