// SPDX-License-Identifier: MIT
#include "platform/desktop.h"

#include "control_kernel.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string_view>

#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <unistd.h>

namespace kez::desktop {

namespace {

std::string home()
{
    const char* const told = std::getenv("HOME");
    if (told != nullptr && *told == '/')
        return told;
    const passwd* const user = ::getpwuid(::getuid());
    return user != nullptr ? user->pw_dir : "";
}

// A relative path in such a variable is to be ignored.
std::string directoryFrom(const char* variable, const char* usualBelowHome)
{
    const char* const told = std::getenv(variable);
    return told != nullptr && *told == '/' ? std::string(told) : home() + usualBelowHome;
}

// A line of the person's list of folders, which is written as a shell reads it: NAME="$HOME/..." or
// NAME="/...". Nothing for another name or another form.
std::optional<std::string> folderIn(std::string_view line, std::string_view name)
{
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    if (!line.starts_with(name) || !line.substr(name.size()).starts_with("=\""))
        return std::nullopt;
    line.remove_prefix(name.size() + 2);
    const bool belowHome = line.starts_with("$HOME");
    if (belowHome)
        line.remove_prefix(5);
    else if (!line.starts_with('/'))
        return std::nullopt;
    std::string folder = belowHome ? home() : std::string();
    for (std::size_t i = 0; i < line.size() && line[i] != '"'; ++i) {
        if (line[i] == '\\' && i + 1 < line.size())
            ++i;
        folder += line[i];
    }
    return folder;
}

} // namespace

std::string dataHome()
{
    return directoryFrom("XDG_DATA_HOME", "/.local/share") + "/kez";
}

std::string picturesHome()
{
    std::string folder = home() + "/Pictures";
    std::ifstream list(directoryFrom("XDG_CONFIG_HOME", "/.config") + "/user-dirs.dirs");
    for (std::string line; std::getline(list, line);)
        folder = folderIn(line, "XDG_PICTURES_DIR").value_or(folder);
    // A person who wants no such folder has the home directory itself there.
    const bool isHome = folder == home() || folder == home() + '/';
    return isHome ? std::string() : folder;
}

std::string programDirectory()
{
    char path[PATH_MAX];
    const ssize_t length = ::readlink("/proc/self/exe", path, sizeof path);
    if (length <= 0)
        return ".";
    const std::string file(path, static_cast<std::size_t>(length));
    return file.substr(0, file.rfind('/'));
}

void useScriptClock(unsigned start)
{
    winapi::useScriptClock(start);
}

std::filesystem::path pathOf(const std::string& text)
{
    return text;
}

std::string textOf(const std::filesystem::path& path)
{
    return path.string();
}

// The directory itself is locked, so that nothing is left in it.
Claim::Claim(const std::string& directory)
    : handle_(::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    refused_ = handle_ >= 0 && ::flock(static_cast<int>(handle_), LOCK_EX | LOCK_NB) != 0
        && errno == EWOULDBLOCK;
}

Claim::~Claim()
{
    if (handle_ >= 0)
        ::close(static_cast<int>(handle_));
}

void useConsoleOfCaller() { }

void showDebugOutput(bool shown)
{
    winapi::showDebugOutput(shown);
}

} // namespace kez::desktop
