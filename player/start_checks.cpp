// SPDX-License-Identifier: MIT
#include "start_checks.h"

#include "media/resource_archive.h"
#include "platform/desktop.h"
#include "platform/files.h"
#include "platform/path_names.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <filesystem>
#include <vector>

namespace kez::player {

namespace {

constexpr int cameraCells = 20;

bool canBeWritten(const std::string& directory)
{
    const std::string probe = directory + "\\kez-probe.tmp";
    return files::write(probe, std::array<std::uint8_t, 1> { 0 }) && files::remove(probe);
}

bool isOnFullDisk(const std::string& directory)
{
    std::error_code error;
    return std::filesystem::space(desktop::pathOf(directory), error).available == 0 && !error;
}

// What is wrong with the archive of the pictures, or nothing.
std::string faultOf(const std::string& archive)
{
    if (files::size(archive) == 0)
        return files::exists(archive) ? "is empty" : "is not there";
    return ResourceArchive(archive.c_str(), nullptr).count() == 0 ? "is damaged" : "";
}

} // namespace

std::string unusableContent(const std::string& content)
{
    const std::string archive = content + "\\data\\kez.wad";
    const std::string fault = faultOf(archive);
    if (fault.empty())
        return {};
    return files::nativePath(archive) + ' ' + fault
        + ". It holds the activity's pictures. Build the content anew (./run does), or name the "
          "directory that holds data and audio with --content DIR.";
}

std::string voiceDirectory(const std::string& content, const std::string& language)
{
    return language == "en" ? content : content + "/languages/" + language;
}

std::string languagesOf(const std::string& content)
{
    namespace fs = std::filesystem;
    std::vector<std::string> found { "en" };
    std::error_code ignored; // there are no others
    for (fs::directory_iterator folder(desktop::pathOf(content + "/languages"), ignored), end;
         folder != end; folder.increment(ignored))
        found.push_back(desktop::textOf(folder->path().filename()));
    std::ranges::sort(found);
    std::string text;
    for (const std::string& language : found)
        text += (text.empty() ? "" : ", ") + language;
    return text;
}

std::string dataNote(const std::string& data)
{
    std::error_code error;
    std::filesystem::create_directories(desktop::pathOf(data), error);
    const bool isDirectory = files::isDirectory(data);
    if (isDirectory && canBeWritten(data))
        return {};
    if (isOnFullDisk(data))
        return data
            + " is on a full disk: no picture will be kept. Make room there, or choose another "
              "place with --data DIR.\n";
    return data + (isDirectory ? " cannot be written" : " is no directory and cannot become one")
        + ": no picture will be kept. Choose another place with --data DIR, or change who may "
          "write there.\n";
}

void removeUnfinished(const std::string& data)
{
    namespace fs = std::filesystem;
    const auto longAgo = fs::file_time_type::clock::now() - std::chrono::hours(1);
    std::error_code ignored; // what cannot be removed does no harm
    for (const char* folder : { "photo", "clipboard", "export" }) {
        for (fs::directory_iterator file(desktop::pathOf(data) / folder, ignored), end; file != end;
             file.increment(ignored)) {
            const std::u8string name = file->path().filename().u8string();
            if (files::isBesideName({ reinterpret_cast<const char*>(name.data()), name.size() })
                && file->last_write_time(ignored) < longAgo)
                fs::remove(file->path(), ignored);
        }
    }
}

int countCameraPictures(const std::string& data)
{
    int count = 0;
    for (int cell = 1; cell <= cameraCells; ++cell) {
        if (files::exists(data + "\\photo\\~" + std::to_string(cell) + ".cam"))
            ++count;
    }
    return count;
}

} // namespace kez::player
