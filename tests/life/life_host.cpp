// SPDX-License-Identifier: MIT
#include "life_host.h"

#include "process_counts.h"

#include "support/surfaces.h"

namespace kez::life {

namespace {

constexpr const char* className = "KezLifeHost";

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM word, LPARAM detail)
{
    return DefWindowProcA(window, message, word, detail);
}

template <class Interface>
ULONG uses(Interface& object)
{
    object.AddRef();
    return object.Release();
}

template <class Interface>
void release(Interface* object)
{
    if (object != nullptr)
        object->Release();
}

} // namespace

LifeHost::LifeHost(Made made)
    : depth(made == Made::Nothing ? 32 : 16)
{
    WNDCLASSA description {};
    description.lpfnWndProc = procedure;
    description.lpszClassName = className;
    RegisterClassA(&description);
    window = CreateWindowExA(
        0, className, "host", WS_POPUP, 0, 0, 640, 480, nullptr, nullptr, nullptr, nullptr);
    if (made != Made::Nothing && DirectSoundCreate(nullptr, &sound, nullptr) == DS_OK)
        sound->SetCooperativeLevel(window, DSSCL_NORMAL);
    if (DirectDrawCreate(nullptr, &directDraw, nullptr) != DD_OK)
        return;
    directDraw->SetCooperativeLevel(window, DDSCL_NORMAL);
    primary = test::makeSurface(*directDraw, depth);
    secondary = test::makeSurface(*directDraw, depth);
}

LifeHost::~LifeHost()
{
    release(secondary);
    release(primary);
    release(directDraw);
    release(sound);
    DestroyWindow(window);
    UnregisterClassA(className, nullptr);
}

void LifeHost::deliverMessages() const
{
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != FALSE)
        DispatchMessageA(&message);
}

bool LifeHost::isItsOwn() const
{
    constexpr int ownSurfaces = 2;
    return GetWindowLongPtrA(window, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(procedure)
        && surfacesOf(*directDraw) == ownSurfaces && uses(*directDraw) == 1 && uses(*primary) == 1
        && uses(*secondary) == 1 && (sound == nullptr || uses(*sound) == 1);
}

} // namespace kez::life
