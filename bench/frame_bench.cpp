// SPDX-License-Identifier: MIT
// A whole frame of the camera screen at each depth, and the part of it that only copies the
// finished picture onto the primary surface: their difference is the module's own share.
#include "activity/camera_screen.h"
#include "activity/picture_names.h"
#include "bench_support.h"
#include "core/task.h"
#include "display/screen.h"
#include "display/view.h"
#include "input/events.h"
#include "media/camera.h"
#include "media/resource_archive.h"
#include "support/display.h"

#include <filesystem>

namespace kez::bench {

namespace {

/// The camera screen as the child sees it, on surfaces without a window.
class CameraFrame {
public:
    explicit CameraFrame(int bits)
        : display_(bits)
    {
        std::filesystem::current_path(KEZ_BENCH_CONTENT);
        setDataPath(std::filesystem::temp_directory_path().c_str());
        createArchive();
        archive()->open("data\\kez.wad");
        screen().attach(display_.directDraw, display_.primary, display_.secondary, bits);
        switchTo(cameraScreen());
        performSwitch();
        mouseEvent(-100, 160, MouseEvent::Move); // a button is lit
    }

    ~CameraFrame()
    {
        endScene();
        screen().detach();
        destroyArchive();
    }

    CameraFrame(const CameraFrame&) = delete;
    CameraFrame& operator=(const CameraFrame&) = delete;

    [[nodiscard]] bool isComplete() const { return archive()->count() > 0; }

    void copyToPrimary()
    {
        RECT all { 0, 0, canvasWidth, canvasHeight };
        display_.primary->BltFast(0, 0, display_.secondary, &all, DDBLTFAST_WAIT);
    }

private:
    test::Display display_;
};

void addFrame(int bits)
{
    const std::string name = "frame/camera/" + std::to_string(bits);
    benchmark::RegisterBenchmark((name + "/whole").c_str(), [=](benchmark::State& state) {
        CameraFrame frame(bits);
        if (!frame.isComplete()) {
            state.SkipWithError("data/kez.wad has not been made: build the target content");
            return;
        }
        for (auto pass : state) {
            static_cast<void>(pass);
            drawDisplayList();
        }
    });
    benchmark::RegisterBenchmark((name + "/onlyPresenting").c_str(), [=](benchmark::State& state) {
        CameraFrame frame(bits);
        for (auto pass : state) {
            static_cast<void>(pass);
            frame.copyToPrimary();
        }
    });
}

const bool areAdded = [] {
    for (const int bits : { 16, 24, 32 })
        addFrame(bits);
    return true;
}();

} // namespace

} // namespace kez::bench
