// SPDX-License-Identifier: MIT
#include "activity/album.h"

#include "activity/picture_names.h"
#include "activity/stored_files.h"
#include "platform/ascii_letters.h"
#include "platform/files.h"

#include <string>
#include <unordered_set>

namespace kez {

namespace {

// Looked up in memory: an album may hold hundreds of entries, and a look at the disk for each is
// felt at every page turn.
std::unordered_set<std::string> pictureFileNames()
{
    std::unordered_set<std::string> names;
    for (const files::Entry& file : files::list(makePath("photo", nullptr, nullptr).view(), "cam"))
        names.insert(lowerCase(file.name));
    return names;
}

bool isAlbumName(const String& name)
{
    return name.length() <= longestAlbumName && name.at(0) != '~';
}

int compareNames(const List& first, const List& second)
{
    return itemName(&first).compare(itemName(&second).view());
}

bool renameFile(const char* directory, const char* extension, const String& from, const String& to)
{
    const String source = makePath(directory, from.c_str(), extension);
    return files::rename(source.view(), makePath(directory, to.c_str(), extension).view());
}

} // namespace

List& album()
{
    static List names;
    return names;
}

void scanAlbum()
{
    album().clear();
    const auto pictures = pictureFileNames();
    const String& clipboard = makePath("clipboard", nullptr, nullptr);
    for (const files::Entry& file : files::list(clipboard.view(), "clip")) {
        const String name = nameWithoutExtension(file.name.c_str());
        if (isAlbumName(name) && pictures.contains(lowerCase(name.c_str()) + ".cam"))
            addName(album(), file.name);
    }
    album().quickSort(compareNames);
}

RenameResult renamePicture(List* entry, const char* newName)
{
    if (entry == nullptr || newName == nullptr)
        return RenameResult::Unchanged;
    const String from = nameWithoutExtension(itemName(entry));
    const String to = newName;
    if (to.empty())
        return RenameResult::Blank;
    if (to == from)
        return RenameResult::Unchanged;
    if (to.count(' ') == to.length())
        return RenameResult::Blank;

    const bool isFlip = files::exists(makePath("flipbook", from.c_str(), "flip").view());
    // A name that the album would not show again is refused like one that the disk refuses.
    if (!isAlbumName(to) || !renameFile("clipboard", "clip", from, to))
        return RenameResult::Refused;
    if (isFlip) {
        renameFile("flipbook", "flip", from, to);
    } else {
        renameFile("photo", "cam", from, to);
        renameFile("mask", "mask", from, to);
    }
    String fileName = to;
    entry->item()->setName(fileName.append(".clip").c_str());
    return RenameResult::Renamed;
}

bool deletePicture(const char* name)
{
    bool deleted = false;
    for (const auto& [directory, extension] : { std::pair { "clipboard", "clip" },
             std::pair { "photo", "cam" }, std::pair { "mask", "mask" } }) {
        const String& path = makePath(directory, name, extension);
        if (files::exists(path.view()))
            deleted = deleteStoredFile(path);
    }
    return deleted;
}

} // namespace kez
