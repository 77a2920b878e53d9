// SPDX-License-Identifier: MIT
/// The camera screen's pictures before they are saved. Each cell of its grid has a slot; a picture
/// in slot K−1 lies in photo\~K.cam and clipboard\~K.clip until the child saves it under the slot's
/// own "Photo" number.
#pragma once

#include <cstdint>

namespace kez {

struct CameraSlot {
    std::int32_t fileNumber = 0; ///< Reserved for the permanent name.
    bool taken = false; ///< Holds a picture.
    bool saved = false; ///< Its picture has been copied to the permanent name.
};

constexpr int slotCount = 20;

[[nodiscard]] CameraSlot& cameraSlot(int index); ///< 0 to `slotCount` − 1.
[[nodiscard]] int picturesTaken(); ///< Slots that hold a picture.

inline bool unsavedPictures = false; ///< Some taken picture is not on disk under its own name.
inline bool hasRoomNow = false; ///< The last test of the disk budget succeeded.
inline bool retestRoom = false; ///< The camera screen is to test it once more.

void resetSlots(); ///< Empties all and reserves a free number for each.

/// Puts a 160 × 120 picture into the first empty slot and on disk; returns the slot, or −1 when all
/// are full. The slot is taken even if the files could not be written.
int storeTakenPicture(const std::uint8_t* picture);

/// Copies every taken picture to its permanent name, also those saved before, and has the guide say
/// so. When a copy fails, on a disk that is full for one, its slot is not `saved`,
/// `unsavedPictures` stays set and the guide says that something could not be stored: nothing is
/// lost in silence.
void saveTakenPictures();

void requestSave(); ///< Saves when there is something unsaved and room for it.
bool forgetSlot(int index); ///< Empties a slot; its files stay. False when it held nothing.

} // namespace kez
