// SPDX-License-Identifier: MIT
#include "device_context.h"

#include "display_window.h"
#include "surface.h"
#include "wingdi.h"
#include "winuser.h"

#include <algorithm>
#include <utility>

namespace kez::winapi {

namespace {

constexpr int dotsPerInch = 96;

GdiObject* stock(int index)
{
    return gdiObjects().find(GetStockObject(index));
}

} // namespace

DeviceContext::DeviceContext(Kind kindOf, Surface* drawnOn)
    : kind(kindOf)
    , surface(drawnOn)
    , font(stock(SYSTEM_FONT))
    , brush(stock(WHITE_BRUSH))
    , bitmap(&noBitmap())
    , backMode(OPAQUE)
{
    ++bitmap->selections;
    ++font->selections;
    ++brush->selections;
}

DeviceContext::~DeviceContext()
{
    --font->selections;
    --brush->selections;
    --bitmap->selections;
}

PixelView DeviceContext::target()
{
    if (kind == Kind::Memory)
        return std::get<Bitmap>(bitmap->what).view();
    Surface* drawnOn = kind == Kind::Window ? display().primary : surface;
    drawn = true;
    return drawnOn != nullptr && drawnOn->IsLost() == DD_OK ? drawnOn->view() : PixelView {};
}

GdiObject* DeviceContext::select(GdiObject& object)
{
    const bool isBitmap = std::holds_alternative<Bitmap>(object.what);
    if (isBitmap && (kind != Kind::Memory || (object.selections != 0 && !object.stock)))
        return nullptr;
    GdiObject*& place = isBitmap                    ? bitmap
        : std::holds_alternative<Font>(object.what) ? font
                                                    : brush;
    ++object.selections;
    --place->selections;
    return std::exchange(place, &object);
}

HandleTable<DeviceContext, HDC>& contexts()
{
    static auto& only = *new HandleTable<DeviceContext, HDC>;
    return only;
}

HDC openSurfaceContext(Surface& surface)
{
    return contexts().add(std::make_unique<DeviceContext>(DeviceContext::Kind::Surface, &surface));
}

void closeContext(HDC context)
{
    contexts().remove(context);
}

RECT intersection(const RECT& a, const RECT& b)
{
    return { std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
        std::min(a.bottom, b.bottom) };
}

void fillPixels(DeviceContext& context, RECT area, Colour colour)
{
    const PixelView view = context.target();
    if (!view)
        return;
    area = intersection(area, { 0, 0, view.width, view.height });
    for (int y = area.top; y < area.bottom; ++y) {
        for (int x = area.left; x < area.right; ++x)
            view.format->paint(view.at(x, y), colour);
    }
}

} // namespace kez::winapi

using namespace kez::winapi;

HDC WINAPI CreateCompatibleDC(HDC context)
{
    if (context != nullptr && contexts().find(context) == nullptr)
        return nullptr;
    return contexts().add(std::make_unique<DeviceContext>(DeviceContext::Kind::Memory));
}

BOOL WINAPI DeleteDC(HDC handle)
{
    const DeviceContext* context = contexts().find(handle);
    if (context == nullptr || context->kind != DeviceContext::Kind::Memory)
        return FALSE;
    closeContext(handle);
    return TRUE;
}

HDC WINAPI GetDC(HWND window)
{
    if (window != nullptr && IsWindow(window) == FALSE)
        return nullptr;
    return contexts().add(std::make_unique<DeviceContext>(DeviceContext::Kind::Window));
}

int WINAPI ReleaseDC(HWND, HDC handle)
{
    const DeviceContext* context = contexts().find(handle);
    if (context == nullptr || context->kind != DeviceContext::Kind::Window)
        return 0;
    const bool drawn = context->drawn;
    closeContext(handle);
    if (drawn)
        showPicture();
    return 1;
}

int WINAPI GetDeviceCaps(HDC handle, int index)
{
    if (contexts().find(handle) == nullptr)
        return 0;
    const DisplayMode& mode = display().mode;
    switch (index) {
    case LOGPIXELSX:
    case LOGPIXELSY:
        return dotsPerInch;
    case HORZRES:
        return mode.width;
    case VERTRES:
        return mode.height;
    case BITSPIXEL:
        return static_cast<int>(mode.format.bits());
    default:
        return 0;
    }
}

HGDIOBJ WINAPI SelectObject(HDC handle, HGDIOBJ chosen)
{
    DeviceContext* context = contexts().find(handle);
    GdiObject* object = gdiObjects().find(chosen);
    return context != nullptr && object != nullptr ? context->select(*object) : nullptr;
}

COLORREF WINAPI SetTextColor(HDC handle, COLORREF colour)
{
    DeviceContext* context = contexts().find(handle);
    return context != nullptr ? std::exchange(context->textColour, colour & 0xFFFFFF) : CLR_INVALID;
}

COLORREF WINAPI GetTextColor(HDC handle)
{
    const DeviceContext* context = contexts().find(handle);
    return context != nullptr ? context->textColour : CLR_INVALID;
}

COLORREF WINAPI SetBkColor(HDC handle, COLORREF colour)
{
    DeviceContext* context = contexts().find(handle);
    return context != nullptr ? std::exchange(context->backColour, colour & 0xFFFFFF) : CLR_INVALID;
}

int WINAPI SetBkMode(HDC handle, int mode)
{
    DeviceContext* context = contexts().find(handle);
    if (context == nullptr || (mode != OPAQUE && mode != TRANSPARENT))
        return 0;
    return std::exchange(context->backMode, mode);
}

int WINAPI GetBkMode(HDC handle)
{
    const DeviceContext* context = contexts().find(handle);
    return context != nullptr ? context->backMode : 0;
}

BOOL WINAPI SetViewportOrgEx(HDC handle, int x, int y, LPPOINT previous)
{
    DeviceContext* context = contexts().find(handle);
    if (context == nullptr)
        return FALSE;
    if (previous != nullptr)
        *previous = context->origin;
    context->origin = { x, y };
    return TRUE;
}

BOOL WINAPI GetViewportOrgEx(HDC handle, LPPOINT origin)
{
    const DeviceContext* context = contexts().find(handle);
    if (context == nullptr || origin == nullptr)
        return FALSE;
    *origin = context->origin;
    return TRUE;
}

COLORREF WINAPI GetPixel(HDC handle, int x, int y)
{
    DeviceContext* context = contexts().find(handle);
    const PixelView view = context != nullptr ? context->target() : PixelView {};
    if (!view)
        return CLR_INVALID;
    x += context->origin.x;
    y += context->origin.y;
    if (x < 0 || y < 0 || x >= view.width || y >= view.height)
        return CLR_INVALID;
    const Colour colour = view.format->unpack(view.format->read(view.at(x, y)));
    return RGB(colour.red, colour.green, colour.blue);
}

int WINAPI FillRect(HDC handle, const RECT* area, HBRUSH brush)
{
    DeviceContext* context = contexts().find(handle);
    const GdiObject* object = gdiObjects().find(brush);
    if (context == nullptr || area == nullptr || object == nullptr
        || !std::holds_alternative<Brush>(object->what))
        return 0;
    const Brush& paint = std::get<Brush>(object->what);
    const POINT& origin = context->origin;
    if (paint.paints)
        fillPixels(*context,
            { area->left + origin.x, area->top + origin.y, area->right + origin.x,
                area->bottom + origin.y },
            paint.colour);
    return 1;
}
