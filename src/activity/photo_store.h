// SPDX-License-Identifier: MIT
/// The photo store keeps the children's pictures: in the camera screen's slots while they are
/// unsaved, and on disk under the data path. A picture called N has up to three files: photo\N.cam
/// (Targa), clipboard\N.clip (a raw 60 × 45 thumbnail) and mask\N.mask (one bit a pixel). There is
/// one store per module. Every file it writes or deletes is counted in `diskUsed`.
///
/// Pictures are width × height pixels of three bytes, blue, green, red, bottom row first.
#pragma once

#include "core/list.h"
#include "core/string.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace kez {

constexpr int clipWidth = 60;
constexpr int clipHeight = 45;
constexpr std::size_t clipBytes = 8100;

/// Names and paths ----------------------------------------------------------------------------

void setDataPath(const char* dataPath); ///< Null or empty: no prefix.

/// Data path, directory (made if missing), name and extension put together; each may be null. The
/// text stays valid until the next call.
const String& makePath(const char* directory, const char* name, const char* extension);

/// Prefix and number, the number right-aligned in three characters; a number above 999 becomes 0.
String& makeNumberedName(String& out, const char* prefix, int number);

/// The lowest number from `first` on whose file does not exist; 999 when 998 is taken as well. The
/// prefix is also the directory.
int findFreeNumber(const char* prefix, int first, const char* extension);
int findFreeExportNumber(); ///< Neither a "bmp" nor a "jpg" of that name in "Export".
int findFreeImportNumber(); ///< "Image" names in "Photo".

/// Pictures -------------------------------------------------------------------------------------

void protectKeyColours(std::uint8_t* pixels, int count);
void makeThumbnail(const std::uint8_t* source, int sw, int sh, const std::uint8_t* mask,
    std::uint8_t* out, int ow, int oh);
bool savePhoto(const char* name, const std::uint8_t* pixels, int width, int height,
    const std::uint8_t* mask, const char* directory);
bool saveClip(
    const char* name, const std::uint8_t* pixels, int width, int height, const std::uint8_t* mask);

/// Stores a picture from outside under `path`, reduced to 320 × 240 if it is larger, and its
/// thumbnail under `name`. Changes `pixels`. See `importFailed`.
bool storeImportedPicture(
    const char* path, const char* name, std::uint8_t* pixels, int width, int height);
inline bool importFailed = false; ///< The last imported picture could not be stored.

bool readClip(const List* entry, std::span<std::uint8_t, clipBytes> out);
bool readMask(const char* path, std::uint8_t* out, int count);
void applyMask(std::uint8_t* pixels, const std::uint8_t* mask, int count); ///< Mask may be null.

/// Camera slots ---------------------------------------------------------------------------------

struct CameraSlot {
    std::int32_t fileNumber = 0; ///< Reserved for the permanent name.
    bool taken = false; ///< Holds a picture, as photo\~K.cam, K = slot index + 1.
    bool saved = false; ///< Copied to its permanent name.
};

constexpr int slotCount = 20;
CameraSlot& cameraSlot(int index);
[[nodiscard]] int picturesTaken();
inline bool unsavedPictures = false;
inline bool hasRoomNow = false; ///< The last test of the disk budget succeeded.
inline bool retestRoom = false; ///< The camera screen is to test it once more.

void resetSlots();
int storeTakenPicture(const std::uint8_t* picture); ///< 160 × 120; returns the slot it went into.
void saveTakenPictures();
void requestSave();
bool forgetSlot(int index); ///< Empties a slot; its files stay. False when it held nothing.
String temporaryName(int number); ///< "~1" for slot 0.

/// Album ----------------------------------------------------------------------------------------

List& album(); ///< Names of the form N.clip, sorted by byte. See `scanAlbum`.
void scanAlbum();

/// What a rename did; the caller puts the label right and lets the guide speak.
enum class RenameResult { Unchanged, Renamed, Blank, Refused };
RenameResult renamePicture(List* entry, const char* newName);
bool deletePicture(const char* name);

/// Hand-over and budget -----------------------------------------------------------------------

void handOverPicture(const char* name); ///< Null: nothing chosen. The run ends either way.
bool hasRoom(int bytes); ///< False, and the guide says so, when the budget does not allow them.
int addDiskUsed(int change); ///< The new total.

} // namespace kez
