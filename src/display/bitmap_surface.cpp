// SPDX-License-Identifier: MIT
#include "display/bitmap_surface.h"

#include "core/diagnostics.h"
#include "display/bitmap_length.h"
#include "display/memory_surface.h"
#include "display/screen.h"
#include "platform/files.h"

#include <string>

namespace kez {

namespace {

HBITMAP loadBitmap(const char* name, int width, int height)
{
    HANDLE bitmap = LoadImageA(
        GetModuleHandleA(nullptr), name, IMAGE_BITMAP, width, height, LR_CREATEDIBSECTION);
    const std::string path = files::nativePath(name);
    if (bitmap == nullptr && !path.empty() && bitmapFileIsWhole(name))
        bitmap = LoadImageA(nullptr, path.c_str(), IMAGE_BITMAP, width, height,
            LR_LOADFROMFILE | LR_CREATEDIBSECTION);
    if (bitmap == nullptr)
        reportLastError("The bitmap %.600s cannot be loaded.", name);
    return static_cast<HBITMAP>(bitmap);
}

IDirectDrawSurface* createSurface(int width, int height)
{
    if (screen().directDraw() != nullptr)
        return createMemorySurface(*screen().directDraw(), width, height, 24);
    debugPrint("Without a DirectDraw object no bitmap can be loaded.");
    return nullptr;
}

/// A memory context with the bitmap selected.
class BitmapContext {
public:
    explicit BitmapContext(HBITMAP bitmap)
        : context_(CreateCompatibleDC(nullptr))
    {
        if (context_ == nullptr)
            OutputDebugStringA("createcompatible dc failed\n");
        else
            former_ = SelectObject(context_, bitmap);
    }

    ~BitmapContext()
    {
        if (former_ != nullptr)
            SelectObject(context_, former_);
        if (context_ != nullptr)
            DeleteDC(context_);
    }

    BitmapContext(const BitmapContext&) = delete;
    BitmapContext& operator=(const BitmapContext&) = delete;

    explicit operator bool() const { return former_ != nullptr; }

    [[nodiscard]] HDC handle() const { return context_; }

private:
    HDC context_;
    HGDIOBJ former_ = nullptr;
};

bool copyOnto(IDirectDrawSurface& surface, HBITMAP bitmap, const BITMAP& bitmapSize)
{
    surface.Restore();
    const BitmapContext source(bitmap);
    DDSURFACEDESC size = {};
    size.dwSize = sizeof size;
    if (!source || surface.GetSurfaceDesc(&size) != DD_OK)
        return false;
    const HDC target = takeDeviceContext(surface);
    if (target == nullptr)
        return false;
    const BOOL copied
        = StretchBlt(target, 0, 0, static_cast<int>(size.dwWidth), static_cast<int>(size.dwHeight),
            source.handle(), 0, 0, bitmapSize.bmWidth, bitmapSize.bmHeight, SRCCOPY);
    surface.ReleaseDC(target);
    return copied != FALSE;
}

IDirectDrawSurface* makeSurface(HBITMAP bitmap, const char* name, BITMAP& description)
{
    if (GetObjectA(bitmap, sizeof description, &description) == 0)
        return nullptr;
    IDirectDrawSurface* const surface = createSurface(description.bmWidth, description.bmHeight);
    if (surface == nullptr || copyOnto(*surface, bitmap, description))
        return surface;
    debugPrint("The bitmap %.600s cannot be copied onto its surface.", name);
    surface->Release();
    return nullptr;
}

} // namespace

IDirectDrawSurface* loadBitmapSurface(const char* name, int width, int height, BITMAP* description)
{
    if (name == nullptr)
        return nullptr;
    const HBITMAP bitmap = loadBitmap(name, width, height);
    if (bitmap == nullptr)
        return nullptr;
    BITMAP own = {};
    IDirectDrawSurface* const surface
        = makeSurface(bitmap, name, description != nullptr ? *description : own);
    DeleteObject(bitmap);
    return surface;
}

} // namespace kez
