// SPDX-License-Identifier: MIT
// How fast the library draws in this build, as one line a case: its name, and microseconds. The
// same program for every system, so that scripts/compare-pace can run two of them side by side.
//
//   kez-pace CONTENT
#include "activity/camera_screen.h"
#include "activity/picture_names.h"
#include "display/screen.h"
#include "display/view.h"
#include "input/events.h"
#include "media/resource_archive.h"
#include "sprites/blit.h"
#include "sprites/random_sprite.h"
#include "support/failing_surface.h"
#include "support/surfaces.h"

#include <windows.h>

#include <ddraw.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace {

using namespace kez;

constexpr int width = 640;
constexpr int height = 480;
constexpr int rounds = 15;
constexpr double roundUs = 20000; // as long as it takes for the clock's grain not to matter

double timeUs(const std::function<void()>& work, int times)
{
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < times; ++i)
        work();
    const std::chrono::duration<double, std::micro> passed
        = std::chrono::steady_clock::now() - start;
    return passed.count() / times;
}

// The best of several rounds: what others do on the machine only makes it slower.
double bestUs(const std::function<void()>& work)
{
    const int times = 1 + static_cast<int>(roundUs / std::max(timeUs(work, 3), 0.1));
    double best = timeUs(work, times);
    for (int round = 1; round < rounds; ++round)
        best = std::min(best, timeUs(work, times));
    return best;
}

void tell(const std::string& name, double microseconds)
{
    std::printf("%s %.2f\n", name.c_str(), microseconds);
    std::fflush(stdout);
}

// The library's own share of a frame of the camera screen: without the copy to the primary surface.
bool timeFrame(IDirectDraw& directDraw, int bits)
{
    IDirectDrawSurface* const secondary = test::makeSurface(directDraw, bits);
    if (secondary == nullptr)
        return false;
    test::FailingSurface primary(secondary);
    primary.copyNothing();
    screen().attach(&directDraw, &primary, secondary, bits);
    tell("frame/" + std::to_string(bits), bestUs(drawDisplayList));
    screen().detach();
    secondary->Release();
    return true;
}

bool timeFrames(const char* content)
{
    std::error_code error;
    std::filesystem::current_path(content, error);
    createArchive();
    archive()->open("data\\kez.wad");
    if (archive()->count() == 0)
        return false;
    IDirectDraw* directDraw = nullptr;
    DirectDrawCreate(nullptr, &directDraw, nullptr);
    directDraw->SetCooperativeLevel(nullptr, DDSCL_NORMAL);
    switchTo(cameraScreen());
    performSwitch();
    mouseEvent(-100, 160, MouseEvent::Move); // a button is lit
    bool all = true;
    for (const int bits : { 16, 24, 32 })
        all &= timeFrame(*directDraw, bits);
    endScene();
    destroyArchive();
    directDraw->Release();
    return all;
}

void timeBlit(const char* name, const test::RandomShape& shape, int times)
{
    test::Random random(20265);
    const test::RandomSprite sprite(shape, random);
    std::vector<std::uint32_t> canvas(width * height, 0xFF808080);
    const SpritePlacement place { 0, 0, times * shape.width / 2, times * shape.height / 2, 0 };
    tell(std::string("blit/") + name, bestUs([&] {
        drawSprite({ canvas.data(), width, height }, sprite.parts(), place);
    }));
}

void timeBlits()
{
    using test::Spread;
    constexpr int asItIs = 2; // halves
    timeBlit("copy", { 300, 200 }, asItIs);
    timeBlit("blend", { 300, 200, 32, SpriteMode::Raw, true, Spread::Soft }, asItIs);
    timeBlit("runs", { 300, 200, 32, SpriteMode::ShortRuns, false, Spread::Drawn }, asItIs);
    timeBlit("runs-palette", { 300, 200, 8, SpriteMode::ShortRuns, true, Spread::Drawn }, asItIs);
    timeBlit("scaled", { 300, 200 }, 3);
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 2)
        return std::fputs("usage: kez-pace CONTENT\n", stderr), 2;
    timeBlits();
    if (timeFrames(arguments[1]))
        return 0;
    std::fprintf(
        stderr, "kez-pace: %s holds no content, or DirectDraw makes no surfaces\n", arguments[1]);
    return 1;
}
