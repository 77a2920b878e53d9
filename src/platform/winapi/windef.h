// SPDX-License-Identifier: MIT
/// The basic types of the Win32 names that this layer supplies. Widths are the platform's, not the
/// host's: a LONG has 32 bits here as there.
#pragma once

#include <cstddef>
#include <cstdint>

#define WINAPI
#define CALLBACK
#define APIENTRY WINAPI
#define STDMETHODCALLTYPE
#define STDAPICALLTYPE
#define FAR
#define CONST const

using BOOL = int;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using UINT = std::uint32_t;
using INT = std::int32_t;
using SHORT = std::int16_t;
using USHORT = std::uint16_t;
using UCHAR = std::uint8_t;
using CHAR = char;
using HRESULT = std::int32_t;
using COLORREF = DWORD;
using ATOM = WORD;
using SIZE_T = std::size_t;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using ULONG_PTR = std::uintptr_t;
using DWORD_PTR = std::uintptr_t;
using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;

using LPVOID = void*;
using LPCVOID = const void*;
using LPBYTE = BYTE*;
using LPDWORD = DWORD*;
using LPLONG = LONG*;
using LPSTR = char*;
using LPCSTR = const char*;

#define DECLARE_HANDLE(name)                                                                       \
    struct name##__;                                                                               \
    using name = name##__*

using HANDLE = void*;
using HGDIOBJ = void*;
DECLARE_HANDLE(HWND);
DECLARE_HANDLE(HDC);
DECLARE_HANDLE(HINSTANCE);
DECLARE_HANDLE(HICON);
DECLARE_HANDLE(HMENU);
DECLARE_HANDLE(HFONT);
DECLARE_HANDLE(HBRUSH);
DECLARE_HANDLE(HBITMAP);
DECLARE_HANDLE(HPALETTE);
DECLARE_HANDLE(HRGN);
DECLARE_HANDLE(HMONITOR);
using HMODULE = HINSTANCE;
using HCURSOR = HICON;

#define FALSE 0
#define TRUE 1
#define MAX_PATH 260

struct POINT {
    LONG x;
    LONG y;
};

using LPPOINT = POINT*;

struct SIZE {
    LONG cx;
    LONG cy;
};

using LPSIZE = SIZE*;

struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};

using LPRECT = RECT*;
using LPCRECT = const RECT*;

struct GUID {
    DWORD Data1;
    WORD Data2;
    WORD Data3;
    BYTE Data4[8];
};

using IID = GUID;
using LPGUID = GUID*;
using REFIID = const IID&;

#define LOWORD(value) (static_cast<WORD>(static_cast<DWORD_PTR>(value) & 0xFFFF))
#define HIWORD(value) (static_cast<WORD>((static_cast<DWORD_PTR>(value) >> 16) & 0xFFFF))
#define MAKELONG(low, high)                                                                        \
    (static_cast<LONG>(                                                                            \
        static_cast<WORD>(low) | (static_cast<DWORD>(static_cast<WORD>(high)) << 16)))
#define MAKELPARAM(low, high) (static_cast<LPARAM>(static_cast<DWORD>(MAKELONG(low, high))))

#define S_OK (static_cast<HRESULT>(0))
#define S_FALSE (static_cast<HRESULT>(1))
#define E_NOTIMPL (static_cast<HRESULT>(0x80004001u))
#define E_NOINTERFACE (static_cast<HRESULT>(0x80004002u))
#define E_POINTER (static_cast<HRESULT>(0x80004003u))
#define E_FAIL (static_cast<HRESULT>(0x80004005u))
#define E_OUTOFMEMORY (static_cast<HRESULT>(0x8007000Eu))
#define E_INVALIDARG (static_cast<HRESULT>(0x80070057u))
#define SUCCEEDED(result) (static_cast<HRESULT>(result) >= 0)
#define FAILED(result) (static_cast<HRESULT>(result) < 0)

static_assert(sizeof(LONG) == 4 && sizeof(DWORD) == 4 && sizeof(BOOL) == 4);
