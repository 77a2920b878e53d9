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

#include <windows.h>

#include <ddraw.h>

#include <filesystem>

namespace kez::bench {

namespace {

DDPIXELFORMAT formatOf(int bits)
{
    DDPIXELFORMAT format = {};
    format.dwSize = sizeof format;
    format.dwFlags = DDPF_RGB;
    format.dwRGBBitCount = static_cast<DWORD>(bits);
    format.dwRBitMask = bits == 16 ? 0xF800 : 0xFF0000;
    format.dwGBitMask = bits == 16 ? 0x07E0 : 0x00FF00;
    format.dwBBitMask = bits == 16 ? 0x001F : 0x0000FF;
    return format;
}

/// The camera screen as the child sees it, on surfaces without a window.
class CameraFrame {
public:
    explicit CameraFrame(int bits)
    {
        DirectDrawCreate(nullptr, &directDraw_, nullptr);
        directDraw_->SetCooperativeLevel(nullptr, DDSCL_NORMAL);
        primary_ = makeSurface(bits);
        secondary_ = makeSurface(bits);
        std::filesystem::current_path(KEZ_BENCH_CONTENT);
        setDataPath(std::filesystem::temp_directory_path().c_str());
        createArchive();
        archive()->open("data\\kez.wad");
        screen().attach(directDraw_, primary_, secondary_, bits);
        switchTo(cameraScreen());
        performSwitch();
        mouseEvent(-100, 160, MouseEvent::Move); // a button is lit
    }

    ~CameraFrame()
    {
        endScene();
        screen().detach();
        destroyArchive();
        primary_->Release();
        secondary_->Release();
        directDraw_->Release();
    }

    CameraFrame(const CameraFrame&) = delete;
    CameraFrame& operator=(const CameraFrame&) = delete;

    [[nodiscard]] bool isComplete() const { return archive()->count() > 0; }

    void copyToPrimary()
    {
        RECT all { 0, 0, canvasWidth, canvasHeight };
        primary_->BltFast(0, 0, secondary_, &all, DDBLTFAST_WAIT);
    }

private:
    IDirectDrawSurface* makeSurface(int bits)
    {
        DDSURFACEDESC description = {};
        description.dwSize = sizeof description;
        description.dwFlags = DDSD_CAPS | DDSD_WIDTH | DDSD_HEIGHT | DDSD_PIXELFORMAT;
        description.dwWidth = canvasWidth;
        description.dwHeight = canvasHeight;
        description.ddsCaps.dwCaps = DDSCAPS_OFFSCREENPLAIN | DDSCAPS_SYSTEMMEMORY;
        description.ddpfPixelFormat = formatOf(bits);
        IDirectDrawSurface* surface = nullptr;
        directDraw_->CreateSurface(&description, &surface, nullptr);
        return surface;
    }

    IDirectDraw* directDraw_ = nullptr;
    IDirectDrawSurface* primary_ = nullptr;
    IDirectDrawSurface* secondary_ = nullptr;
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
