// SPDX-License-Identifier: MIT
#include "places.h"

#include "start_checks.h"

#include "platform/desktop.h"

#include <filesystem>

namespace kez::player {

namespace {

namespace fs = std::filesystem;
using desktop::pathOf;
using desktop::textOf;

// The current directory may have been removed; then nothing relative can be found.
std::string whole(const std::string& path)
{
    std::error_code error;
    const std::string found = path.empty() ? path : textOf(fs::absolute(pathOf(path), error));
    return error ? path : found;
}

std::string currentDirectory()
{
    std::error_code error;
    return textOf(fs::current_path(error));
}

std::string usualContent()
{
    const std::string beside = desktop::programDirectory();
    const std::string installed
        = textOf((pathOf(beside) / KEZ_INSTALLED_CONTENT).lexically_normal());
    return unusableContent(beside).empty() || !unusableContent(installed).empty() ? beside
                                                                                  : installed;
}

std::string picturesFor(const Options& options)
{
    if (options.pictures)
        return whole(*options.pictures);
    const bool isWatched = !options.headless && options.visit.empty();
    const std::string home = isWatched ? desktop::picturesHome() : std::string();
    return home.empty() ? home : textOf(pathOf(home) / "Kez");
}

std::string cameraFor(const Options& options)
{
    const std::string_view prefix = folderPrefix;
    if (!options.camera.starts_with(prefix))
        return options.camera;
    return folderPrefix + whole(options.camera.substr(prefix.size()));
}

} // namespace

Options usualOptions()
{
    Options options;
    options.data = desktop::dataHome();
    options.content = usualContent();
    return options;
}

Places placesFor(const Options& options)
{
    return { whole(options.data), whole(options.content), picturesFor(options),
        whole(options.handedBack), whole(options.log), currentDirectory(), cameraFor(options) };
}

} // namespace kez::player
