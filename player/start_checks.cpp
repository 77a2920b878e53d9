// SPDX-License-Identifier: MIT
#include "start_checks.h"

#include "platform/files.h"

#include <array>
#include <filesystem>

namespace kez::player {
namespace {

constexpr int cameraCells = 20;

bool canBeWritten(const std::string& directory)
{
    const std::string probe = directory + "\\kez-probe.tmp";
    return files::write(probe, std::array<std::uint8_t, 1> { 0 }) && files::remove(probe);
}

} // namespace

std::string missingContent(const std::string& content)
{
    const std::string archive = content + "\\data\\kez.wad";
    if (files::size(archive) != 0)
        return {};
    const std::string fault = files::exists(archive) ? " is empty. " : " is not there. ";
    return files::nativePath(archive) + fault
        + "It holds the activity's pictures. Build the content (./run does), or name the directory "
          "that holds data and audio with --content DIR.";
}

std::string voiceDirectory(const std::string& content, const std::string& language)
{
    return language == "en" ? content : content + "/languages/" + language;
}

std::string dataNote(const std::string& data)
{
    std::error_code error;
    std::filesystem::create_directories(data, error);
    const bool isDirectory = files::isDirectory(data);
    if (isDirectory && canBeWritten(data))
        return {};
    return data + (isDirectory ? " cannot be written" : " is no directory and cannot become one")
        + ": no picture will be kept. Choose another place with --data DIR, or change who may "
          "write there.\n";
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
