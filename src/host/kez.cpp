// SPDX-License-Identifier: MIT
#include "host/kez.h"

#include "activity/guide.h"
#include "activity/hand_over.h"
#include "activity/picture_names.h"
#include "core/clock.h"
#include "core/diagnostics.h"
#include "core/flags.h"
#include "display/cursor.h"
#include "display/scene.h"
#include "display/screen.h"
#include "display/stage.h"
#include "host/pacing.h"
#include "host/scenes.h"
#include "host/song.h"
#include "input/events.h"
#include "input/window_hook.h"
#include "media/camera.h"
#include "media/resource_archive.h"
#include "media/sound.h"

using namespace kez;

// `image`, `imageName`, `imageWidth` and `imageHeight` are defined where they are written, in
// activity/hand_over.cpp.
bool Kez::exit = false;
int Kez::disk = 0;

namespace {

HWND hostWindow = nullptr;

constexpr char archivePath[] = "data\\kez.wad";

Sound song(songName);

// For hosts that show in writing what the guide says.
void tellHostOfClip(int clipId, unsigned durationMs)
{
    static const UINT message = RegisterWindowMessageA("KezGuideClip");
    if (hostWindow != nullptr && message != 0)
        PostMessageA(
            hostWindow, message, static_cast<WPARAM>(clipId), static_cast<LPARAM>(durationMs));
}

// The host's own procedure hears where the mouse is as soon as it has its window back.
void tellHostWhereTheMouseIs()
{
    POINT mouse;
    if (hostWindow != nullptr && GetCursorPos(&mouse) != FALSE)
        PostMessageA(hostWindow, WM_MOUSEMOVE, 0, MAKELPARAM(mouse.x, mouse.y));
}

void startScene(Scene& scene)
{
    if (Scene* earlier = currentScene()) {
        earlier->leave();
        earlier->enter();
    }
    switchTo(scene);
}

bool endRun()
{
    running = false;
    finishing = false;
    if (opened)
        stage().frame();
    suspended = true;
    Kez::exit = true;
    return true;
}

bool runFrame()
{
    const int delay = frameDelayMs(framesPerSecond);
    if (delay > 0)
        Sleep(static_cast<DWORD>(delay));
    stage().frame();
    return true;
}

} // namespace

void Kez::initialize(HWND window, IDirectSound* sound, IDirectDraw* directDraw,
    IDirectDrawSurface* primary, IDirectDrawSurface* secondary, int bitsPerPixel,
    const char* dataPath, DWORD ownColor1, DWORD ownColor2, DWORD ownColor3, DWORD ownColor4)
{
    if (quitting) {
        debugPrint("Kez::initialize: the module was released and cannot start again.");
        return;
    }
    if (archive() != nullptr) {
        debugPrint("Kez::initialize: called again; the new objects take the place of the old.");
        close();
    }
    hostWindow = window;
    if (window == nullptr)
        debugPrint("Kez::initialize: there is no window.");
    screen().attach(directDraw, primary, secondary, bitsPerPixel);
    color1 = ownColor1;
    color2 = ownColor2;
    color3 = ownColor3;
    color4 = ownColor4;
    setDataPath(dataPath);
    directSound = sound;
    guide().setListener(tellHostOfClip);
    createArchive();
}

void Kez::initializeCamera()
{
    ::kez::camera().probePorts();
}

void Kez::open()
{
    if (opened || archive() == nullptr) {
        debugPrint("Kez::open: the module is %s.", opened ? "open already" : "not initialised");
        return;
    }
    opened = true;
    installHook(hostWindow);
    archive()->open(archivePath);
    suspended = true;
}

void Kez::run(Module module, int ownDiskBudget, bool playSong, bool ownGuideIntro)
{
    if (!opened) {
        debugPrint("Kez::run: the module is not open.");
        return;
    }
    freshRun = true;
    finishing = false;
    diskBudget = ownDiskBudget;
    guideIntro = ownGuideIntro;
    diskUsed = 0;
    exit = false;
    forgetHandedImage();
    const StagePoint mouse = updateCursor();
    mouseEvent(mouse.x, mouse.y, MouseEvent::Move);
    startScene(sceneFor(module));
    suspended = false;
    if (playSong) {
        song.attach();
        song.play(true);
    }
    running = true;
}

bool Kez::process()
{
    exit = false;
    if (quitting) // released in the middle of a run: the host's surfaces are no longer ours
        return false;
    if (finishing)
        return endRun();
    return running && runFrame();
}

void Kez::close()
{
    if (!opened)
        return;
    song.stop();
    song.detach();
    stopGuide();
    endScene();
    opened = false;
    removeHook();
    tellHostWhereTheMouseIs();
    archive()->release();
}

void Kez::release()
{
    if (quitting) {
        debugPrint("Kez::release: the module was released already.");
        return;
    }
    close();
    stage().onReleasing();
    endScene();
    screen().detach();
    destroyArchive();
    stage().onReleased();
    ::kez::camera().shutDown();
    quitting = true;
    shuttingDown = true;
}

DWORD Kez::RGBA(int r, int g, int b, int a)
{
    return static_cast<DWORD>(a) << 24 | static_cast<DWORD>(r) << 16 | static_cast<DWORD>(g) << 8
        | static_cast<DWORD>(b);
}
