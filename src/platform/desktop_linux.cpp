// SPDX-License-Identifier: MIT
#include "platform/desktop.h"

#include "control_kernel.h"

#include <climits>
#include <cstdlib>

#include <pwd.h>
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

} // namespace

std::string dataHome()
{
    // A relative path in the variable is to be ignored.
    const char* const told = std::getenv("XDG_DATA_HOME");
    const bool usable = told != nullptr && *told == '/';
    return (usable ? std::string(told) : home() + "/.local/share") + "/kez";
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

void showDebugOutput(bool shown)
{
    winapi::showDebugOutput(shown);
}

} // namespace kez::desktop
