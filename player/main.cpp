// SPDX-License-Identifier: MIT
#include "options.h"
#include "player.h"

#include "platform/desktop.h"
#include "platform/files.h"

#include <filesystem>
#include <iostream>
#include <optional>

namespace {

using namespace kez::player;
namespace fs = std::filesystem;

constexpr std::string_view folderPrefix = "folder:";

std::string whole(const std::string& path)
{
    return path.empty() ? path : fs::absolute(path).string();
}

Options defaults()
{
    Options options;
    options.data = kez::desktop::dataHome();
    options.content = kez::desktop::programDirectory();
    return options;
}

Places placesOf(const Options& options)
{
    Places places { whole(options.data), whole(options.content), whole(options.handedBack),
        whole(options.log), fs::current_path().string(), options.camera };
    if (options.camera.starts_with(folderPrefix))
        places.camera
            = std::string(folderPrefix) + whole(options.camera.substr(folderPrefix.size()));
    return places;
}

// The steps of the visit that is asked for; none without one. Empty after a complaint.
std::optional<std::vector<Step>> readVisit(const std::string& file)
{
    if (file.empty())
        return std::vector<Step> {};
    const auto bytes = kez::files::read(whole(file));
    if (!bytes) {
        std::cerr << file << ": the visit cannot be read\n";
        return std::nullopt;
    }
    const auto parsed
        = parseVisit(std::string_view(reinterpret_cast<const char*>(bytes->data()), bytes->size()));
    if (const auto* fault = std::get_if<VisitFault>(&parsed)) {
        std::cerr << file << ':' << fault->line << ": " << fault->message << '\n';
        return std::nullopt;
    }
    return std::get<std::vector<Step>>(parsed);
}

} // namespace

int main(int count, char** arguments)
{
    const Usage usage = readOptions(count, arguments, defaults(), std::cout, std::cerr);
    if (!usage.start)
        return static_cast<int>(usage.exitCode);
    const Options& options = usage.options;
    const auto steps = readVisit(options.visit);
    if (!steps)
        return static_cast<int>(ExitCode::BadUsage);
    kez::desktop::showDebugOutput(options.verbose);
    if (options.headless && !options.visit.empty())
        kez::desktop::useScriptClock();
    return static_cast<int>(Player(options, placesOf(options), *steps).play());
}
