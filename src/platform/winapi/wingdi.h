// SPDX-License-Identifier: MIT
/// Device contexts, fonts, brushes and bitmaps. Text is antialiased. Only the low three bytes of a
/// colour reference count. Handles that are not live are refused: the calls return 0, null or
/// CLR_INVALID.
#pragma once

#include "windef.h"

extern "C" {

#define RGB(r, g, b)                                                                               \
    (static_cast<COLORREF>(static_cast<BYTE>(r))                                                   \
        | static_cast<COLORREF>(static_cast<BYTE>(g)) << 8                                         \
        | static_cast<COLORREF>(static_cast<BYTE>(b)) << 16)
#define GetRValue(rgb) (static_cast<BYTE>(rgb))
#define GetGValue(rgb) (static_cast<BYTE>(static_cast<WORD>(rgb) >> 8))
#define GetBValue(rgb) (static_cast<BYTE>((rgb) >> 16))

#define CLR_INVALID 0xFFFFFFFFu
#define GDI_ERROR 0xFFFFFFFFu
#define HGDI_ERROR (reinterpret_cast<HGDIOBJ>(static_cast<ULONG_PTR>(GDI_ERROR)))

#define TRANSPARENT 1
#define OPAQUE 2

#define LOGPIXELSX 88
#define LOGPIXELSY 90
#define HORZRES 8
#define VERTRES 10
#define BITSPIXEL 12

#define WHITE_BRUSH 0
#define LTGRAY_BRUSH 1
#define GRAY_BRUSH 2
#define DKGRAY_BRUSH 3
#define BLACK_BRUSH 4
#define NULL_BRUSH 5
#define SYSTEM_FONT 13
#define SYSTEM_FIXED_FONT 16
#define DEFAULT_GUI_FONT 17

#define FW_DONTCARE 0
#define FW_NORMAL 400
#define FW_SEMIBOLD 600
#define FW_BOLD 700

#define ANSI_CHARSET 0
#define DEFAULT_CHARSET 1
#define OUT_DEFAULT_PRECIS 0
#define CLIP_DEFAULT_PRECIS 0
#define DEFAULT_QUALITY 0
#define DEFAULT_PITCH 0
#define FIXED_PITCH 1
#define VARIABLE_PITCH 2
#define FF_DONTCARE 0

#define SRCCOPY 0x00CC0020u

struct BITMAP {
    LONG bmType;
    LONG bmWidth;
    LONG bmHeight;
    LONG bmWidthBytes;
    WORD bmPlanes;
    WORD bmBitsPixel;
    LPVOID bmBits;
};

using LPBITMAP = BITMAP*;

/// Of memory: it measures; there is nothing to draw on until a bitmap is selected.
HDC WINAPI CreateCompatibleDC(HDC context);
BOOL WINAPI DeleteDC(HDC context); ///< Of a memory context.
int WINAPI GetDeviceCaps(HDC context, int index);
HGDIOBJ WINAPI GetStockObject(int index);
/// A font, a brush or, for one memory context at a time, a bitmap; returns the former one.
HGDIOBJ WINAPI SelectObject(HDC context, HGDIOBJ object);
BOOL WINAPI DeleteObject(HGDIOBJ object); ///< False while it is selected. True for stock objects.
HBRUSH WINAPI CreateSolidBrush(COLORREF colour);

/// Height: negative for the height of a character (the em), positive for that of a cell, 0 for a
/// usual one. A face that is not installed is replaced by the closest.
HFONT WINAPI CreateFontA(int height, int width, int escapement, int orientation, int weight,
    DWORD italic, DWORD underline, DWORD strikeOut, DWORD charSet, DWORD outPrecision,
    DWORD clipPrecision, DWORD quality, DWORD pitchAndFamily, LPCSTR faceName);

COLORREF WINAPI SetTextColor(HDC context, COLORREF colour);
COLORREF WINAPI GetTextColor(HDC context);
COLORREF WINAPI SetBkColor(HDC context, COLORREF colour);
int WINAPI SetBkMode(HDC context, int mode);
int WINAPI GetBkMode(HDC context);
BOOL WINAPI SetViewportOrgEx(HDC context, int x, int y, LPPOINT previous);
BOOL WINAPI GetViewportOrgEx(HDC context, LPPOINT origin);
BOOL WINAPI GetTextExtentPoint32A(HDC context, LPCSTR text, int count, LPSIZE size);
COLORREF WINAPI GetPixel(HDC context, int x, int y);

/// Bitmaps only. The description tells how the pixels are held here, not how the file had them.
int WINAPI GetObjectA(HGDIOBJ object, int size, LPVOID into);

/// SRCCOPY only, between two places; by nearest neighbours. Sizes must be positive.
BOOL WINAPI StretchBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX,
    int sourceY, int sourceWidth, int sourceHeight, DWORD operation);

} // extern "C"
