// SPDX-License-Identifier: MIT
// A host that loads the library by itself, runs it for a moment and lets it go, again and again, in
// one of the ways that hosts do this; nothing may stay behind.
//
//   library_life WAY LIBRARY CONTENT DATA
//
// WAY: released, unreleased, downloading, downloadingReleased, ends (the program, in the middle of
// a download) or camera (one run, to hear what is said about the driver).
#include "life_host.h"
#include "loaded_library.h"
#include "process_counts.h"

#include "platform/desktop.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>

namespace {

using namespace kez::life;

constexpr int rounds = 4;
constexpr int settledRounds = 2; // what is made once only is there by then
constexpr int frames = 15;
constexpr int linesUnderWay = 5;
constexpr int patience = 1000; // frames
constexpr DWORD patienceMs = 10000;

bool complain(const std::string& text)
{
    std::fprintf(stderr, "library_life: %s\n", text.c_str());
    return false;
}

struct Arguments {
    std::string way;
    std::string library;
    std::string content;
    std::string data;
};

int linesSent()
{
    const HMODULE driver = GetModuleHandleA("qxdcdll");
    if (driver == nullptr)
        return 0;
    const auto lines = reinterpret_cast<int (*)()>(
        reinterpret_cast<void*>(GetProcAddress(driver, "slowDriverLines")));
    return lines != nullptr ? lines() : 0;
}

void start(const LoadedLibrary& library, const LifeHost& host, const std::string& data)
{
    library.initialize(host.window, host.sound, host.directDraw, host.primary, host.secondary,
        host.depth, data.c_str(), 1, 2, 3, 4);
    library.open();
    library.run(0, 1 << 20, true, true);
}

bool runFrames(const LoadedLibrary& library, const LifeHost& host, int count)
{
    for (int frame = 0; frame < count; ++frame) {
        if (!library.process())
            return complain("the run ended by itself");
        host.deliverMessages();
    }
    return true;
}

bool runIntoDownload(const LoadedLibrary& library, const LifeHost& host)
{
    for (int frame = 0; frame < patience && linesSent() < linesUnderWay; ++frame)
        if (!runFrames(library, host, 1))
            return false;
    return linesSent() >= linesUnderWay || complain("no download began");
}

bool isLoaded(const std::string& library)
{
    return GetModuleHandleA(library.c_str()) != nullptr;
}

// A worker may have to come back first, while the host goes on.
bool awaitUnload(const std::string& library, const LifeHost& host)
{
    const DWORD start = timeGetTime();
    while ((isLoaded(library) || isLoaded("qxdcdll")) && timeGetTime() - start < patienceMs) {
        host.deliverMessages();
        Sleep(10);
    }
    if (isLoaded(library))
        return complain(library + " stays loaded");
    return !isLoaded("qxdcdll") || complain("the camera's driver stays loaded");
}

bool playRound(const Arguments& arguments)
{
    // What a library that was not released has made ends with the host's DirectX objects, or not:
    // that is theirs to decide.
    const bool releases = arguments.way == "released" || arguments.way == "downloadingReleased";
    const LifeHost host(releases ? Made::SurfaceAndSounds : Made::Nothing);
    if (!host)
        return complain("no surfaces can be made");
    LoadedLibrary library(arguments.library);
    if (!library)
        return complain(arguments.library + " cannot be loaded, or lacks functions");
    start(library, host, arguments.data);
    const bool downloads = arguments.way.starts_with("downloading");
    if (!(downloads ? runIntoDownload(library, host) : runFrames(library, host, frames)))
        return false;
    if (releases) {
        library.release();
        if (!host.isItsOwn())
            return complain("something of the host's is still held after release");
    }
    if (!library.free())
        return complain("the library cannot be let go");
    if (!awaitUnload(arguments.library, host))
        return false;
    SendMessageA(host.window, WM_MOUSEMOVE, 0, MAKELPARAM(10, 10));
    return host.isItsOwn() || complain("something of the host's is still held after the unload");
}

std::string inWords(const ProcessCounts& counts)
{
    std::string text;
    for (const auto& [name, count] : counts)
        text += " " + std::to_string(count) + " " + name + ",";
    text.pop_back();
    return text;
}

// Where the camera's worker unloads the library, the compiler's runtime keeps two handles for the
// host's thread.
long allowedGrowth(const std::string& way, const std::string& name, int round)
{
    return way == "downloading" && name == "handles" ? 2 * (round - settledRounds) : 0;
}

// The name of something there is more of than there was when all had settled; or empty.
std::string whatGrew(
    const ProcessCounts& now, const ProcessCounts& settled, const std::string& way, int round)
{
    for (const auto& [name, count] : now)
        if (count > settled.at(name) + allowedGrowth(way, name, round))
            return name;
    return {};
}

bool playRounds(const Arguments& arguments)
{
    ProcessCounts settled;
    std::string grown;
    for (int round = 1; round <= rounds; ++round) {
        if (!playRound(arguments))
            return false;
        ProcessCounts now = kez::life::processCounts();
        for (const auto& [name, count] : now)
            if (round <= settledRounds)
                settled[name] = std::max(settled[name], count);
        // A worker that let the library go at its end is there for a moment longer.
        const DWORD start = timeGetTime();
        grown = whatGrew(now, settled, arguments.way, round);
        while (!grown.empty() && timeGetTime() - start < patienceMs) {
            Sleep(10);
            now = kez::life::processCounts();
            grown = whatGrew(now, settled, arguments.way, round);
        }
        std::printf("round %d:%s\n", round, inWords(now).c_str());
    }
    return grown.empty() || complain("the number of " + grown + " grows");
}

// The library is loaded and a worker is busy when `main` returns.
bool leaveInTheMiddle(const Arguments& arguments)
{
    static LifeHost host(Made::SurfaceAndSounds);
    static LoadedLibrary library(arguments.library);
    if (!host || !library)
        return complain("the library cannot be used");
    start(library, host, arguments.data);
    return runIntoDownload(library, host);
}

bool hearOfTheDriver(const Arguments& arguments)
{
    const LifeHost host(Made::SurfaceAndSounds);
    LoadedLibrary library(arguments.library);
    if (!host || !library)
        return complain("the library cannot be used");
    start(library, host, arguments.data);
    const bool ran = runFrames(library, host, frames);
    library.release();
    return library.free() && ran;
}

} // namespace

int main(int count, char** texts)
{
    if (count != 5)
        return complain("usage: library_life WAY LIBRARY CONTENT DATA"), 2;
    const Arguments arguments { texts[1], texts[2], texts[3], texts[4] };
    kez::desktop::showDebugOutput(true);
    std::error_code error;
    std::filesystem::remove_all(arguments.data, error);
    std::filesystem::create_directories(arguments.data, error);
    std::filesystem::current_path(arguments.content, error);
    if (error)
        return complain(arguments.content + " cannot be entered"), 2;
    const bool well = arguments.way == "ends" ? leaveInTheMiddle(arguments)
        : arguments.way == "camera"           ? hearOfTheDriver(arguments)
                                              : playRounds(arguments);
    return well ? 0 : 1;
}
