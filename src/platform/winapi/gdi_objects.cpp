// SPDX-License-Identifier: MIT
#include "gdi_objects.h"

#include "wingdi.h"

#include <algorithm>
#include <map>

namespace kez::winapi {

namespace {

constexpr int fixedFontEm = 13; // Cells of 8 × 15 pixels.
constexpr int interfaceFontEm = 11;
// A stock object that programs meet only as what SelectObject gives back.
constexpr int emptyBitmap = 21;

std::unique_ptr<GdiObject> brushOf(Colour colour, bool paints = true)
{
    return std::make_unique<GdiObject>(GdiObject { Brush { colour, paints } });
}

std::unique_ptr<GdiObject> fontOf(const FontRequest& request)
{
    return std::make_unique<GdiObject>(GdiObject { Font(request) });
}

std::unique_ptr<GdiObject> makeStock(int index)
{
    switch (index) {
    case WHITE_BRUSH:
        return brushOf({ 255, 255, 255 });
    case LTGRAY_BRUSH:
        return brushOf({ 192, 192, 192 });
    case GRAY_BRUSH:
        return brushOf({ 128, 128, 128 });
    case DKGRAY_BRUSH:
        return brushOf({ 64, 64, 64 });
    case BLACK_BRUSH:
        return brushOf({ 0, 0, 0 });
    case NULL_BRUSH:
        return brushOf({}, false);
    case SYSTEM_FIXED_FONT:
        return fontOf(
            { .height = -fixedFontEm, .weight = FW_BOLD, .fixedPitch = true, .face = {} });
    case SYSTEM_FONT:
        return fontOf({ .height = -fixedFontEm, .weight = FW_BOLD, .face = {} });
    case DEFAULT_GUI_FONT:
        return fontOf({ .height = -interfaceFontEm, .face = {} });
    case emptyBitmap:
        return std::make_unique<GdiObject>(GdiObject { Bitmap() });
    default:
        return nullptr;
    }
}

} // namespace

HandleTable<GdiObject, HGDIOBJ>& gdiObjects()
{
    static auto& only = *new HandleTable<GdiObject, HGDIOBJ>;
    return only;
}

int ownGdiObjects()
{
    return static_cast<int>(std::ranges::count_if(
        gdiObjects(), [](const auto& entry) { return !entry.second->stock; }));
}

GdiObject& noBitmap()
{
    return *gdiObjects().find(GetStockObject(emptyBitmap));
}

GdiObject& systemFont()
{
    return *gdiObjects().find(GetStockObject(SYSTEM_FONT));
}

} // namespace kez::winapi

using namespace kez::winapi;

HGDIOBJ WINAPI GetStockObject(int index)
{
    static auto& made = *new std::map<int, HGDIOBJ>;
    if (const auto found = made.find(index); found != made.end())
        return found->second;
    std::unique_ptr<GdiObject> object = makeStock(index);
    if (object == nullptr)
        return nullptr;
    object->stock = true;
    return made[index] = gdiObjects().add(std::move(object));
}

BOOL WINAPI DeleteObject(HGDIOBJ handle)
{
    const GdiObject* object = gdiObjects().find(handle);
    if (object == nullptr)
        return FALSE;
    if (object->stock)
        return TRUE;
    return object->selections == 0 && gdiObjects().remove(handle) ? TRUE : FALSE;
}

HBRUSH WINAPI CreateSolidBrush(COLORREF colour)
{
    return static_cast<HBRUSH>(gdiObjects().add(brushOf(Colour::of(colour))));
}

HFONT WINAPI CreateFontA(int height, int, int, int, int weight, DWORD italic, DWORD underline,
    DWORD, DWORD, DWORD, DWORD, DWORD, DWORD pitchAndFamily, LPCSTR faceName)
{
    const FontRequest request { .height = height,
        .weight = weight,
        .italic = italic != 0,
        .underline = underline != 0,
        .fixedPitch = (pitchAndFamily & 3) == FIXED_PITCH,
        .face = faceName != nullptr ? faceName : "" };
    return static_cast<HFONT>(gdiObjects().add(fontOf(request)));
}
