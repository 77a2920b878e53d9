// SPDX-License-Identifier: MIT
// The module's share of a frame of the camera screen with twenty pictures: everything but the copy
// onto the primary surface. Beside it the same frame by SDL2: the same pictures blitted into a
// canvas of 32 bits, and the conversion to the display's depth.
#include "activity/camera_screen.h"
#include "activity/camera_slots.h"
#include "activity/picture_names.h"
#include "bench_support.h"
#include "core/task.h"
#include "core/vector_level.h"
#include "display/screen.h"
#include "display/view.h"
#include "input/events.h"
#include "media/resource_archive.h"
#include "sdl_frame.h"
#include "support/failing_surface.h"
#include "support/surfaces.h"

#include <windows.h>

#include <ddraw.h>

#include <algorithm>
#include <filesystem>

namespace kez::bench {

namespace {

/// The camera screen as the child sees it, on surfaces without a window.
class CameraFrame {
public:
    explicit CameraFrame(int bits)
    {
        DirectDrawCreate(nullptr, &directDraw_, nullptr);
        directDraw_->SetCooperativeLevel(nullptr, DDSCL_NORMAL);
        secondary_ = test::makeSurface(*directDraw_, bits);
        primary_ = std::make_unique<test::FailingSurface>(secondary_);
        primary_->copyNothing();
        std::filesystem::current_path(KEZ_BENCH_CONTENT);
        setDataPath(std::filesystem::temp_directory_path().c_str());
        createArchive();
        archive()->open("data\\kez.wad");
        screen().attach(directDraw_, primary_.get(), secondary_, bits);
        switchTo(cameraScreen());
        performSwitch();
        mouseEvent(-100, 160, MouseEvent::Move); // a button is lit
        pastePictures();
    }

    ~CameraFrame()
    {
        endScene();
        screen().detach();
        destroyArchive();
        secondary_->Release();
        directDraw_->Release();
    }

    CameraFrame(const CameraFrame&) = delete;
    CameraFrame& operator=(const CameraFrame&) = delete;

    [[nodiscard]] bool isComplete() const { return archive()->count() > 0; }

    /// The frame's pixels, drawn by the plain rules and as it is timed.
    [[nodiscard]] bool isExact()
    {
        const VectorLevel level = vectorLevel();
        limitVectorLevel(VectorLevel::Plain);
        const std::vector<std::uint8_t> expected = drawn();
        limitVectorLevel(level);
        return drawn() == expected;
    }

private:
    static void pastePictures()
    {
        const CanvasMemory picture = paintedCanvas();
        const std::vector<Image*> images = cameraScreen().images();
        Image& backdrop = **std::find_if(images.begin(), images.end(),
            [](const Image* image) { return image->name().view() == "camBack"; });
        for (int cell = 0; cell < slotCount; ++cell) {
            const StagePoint& place = cameraScreen().grid().position(cell);
            backdrop.pastePixels(picture.data(), 160, 120, place.x, place.y, 82, 54);
        }
    }

    std::vector<std::uint8_t> drawn()
    {
        drawDisplayList();
        DDSURFACEDESC description = {};
        description.dwSize = sizeof description;
        secondary_->Lock(nullptr, &description, DDLOCK_WAIT, nullptr);
        const auto* const bytes = static_cast<const std::uint8_t*>(description.lpSurface);
        std::vector<std::uint8_t> all(bytes, bytes + description.lPitch * canvasHeight);
        secondary_->Unlock(nullptr);
        return all;
    }

    IDirectDraw* directDraw_ = nullptr;
    std::unique_ptr<test::FailingSurface> primary_;
    IDirectDrawSurface* secondary_ = nullptr;
};

void time(benchmark::State& state, int bits, bool isPeer)
{
    CameraFrame frame(bits);
    if (!frame.isComplete())
        return state.SkipWithError("data/kez.wad has not been made: build the target content");
    if (!frame.isExact())
        return state.SkipWithError("does not draw what the plain rules draw");
    const std::unique_ptr<Peer> peer = isPeer ? sdlFrame(bits) : nullptr;
    for (auto pass : state) {
        static_cast<void>(pass);
        if (isPeer)
            peer->draw();
        else
            drawDisplayList();
        benchmark::ClobberMemory();
    }
}

const bool areAdded = [] {
    for (const int bits : { 16, 24, 32 }) {
        const std::string name = "frame/camera/" + std::to_string(bits);
        for (const bool isPeer : { false, true }) {
            benchmark::RegisterBenchmark((name + (isPeer ? "/SDL2" : "/kez")).c_str(),
                [=](benchmark::State& state) { time(state, bits, isPeer); });
        }
    }
    return true;
}();

} // namespace

} // namespace kez::bench
