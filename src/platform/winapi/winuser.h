// SPDX-License-Identifier: MIT
/// Windows, messages, keyboard and mouse. There is one message queue. A window's client area starts
/// at the screen's origin, so positions on the screen and in the window are the same: pixels of
/// the window's own picture, however large it is shown.
///
/// All windows belong to one thread; it alone may call what is declared here, MessageBoxA excepted.
///
/// Nothing is on a display before `ShowWindow`: a program that never shows its window needs none.
#pragma once

#include "windef.h"

extern "C" {

using WNDPROC = LRESULT(CALLBACK*)(HWND, UINT, WPARAM, LPARAM);

#define MAKEINTRESOURCEA(id)                                                                       \
    (reinterpret_cast<LPSTR>(static_cast<ULONG_PTR>(static_cast<WORD>(id))))
#define IDC_ARROW MAKEINTRESOURCEA(32512)
#define IDC_WAIT MAKEINTRESOURCEA(32514)
#define IDC_HAND MAKEINTRESOURCEA(32649)
#define IDC_HELP MAKEINTRESOURCEA(32651)
#define IDI_APPLICATION MAKEINTRESOURCEA(32512)

#define CS_VREDRAW 0x0001
#define CS_HREDRAW 0x0002
#define CS_DBLCLKS 0x0008
#define CS_OWNDC 0x0020

#define WS_OVERLAPPED 0x00000000u
#define WS_POPUP 0x80000000u
#define WS_VISIBLE 0x10000000u
#define WS_CAPTION 0x00C00000u
#define WS_SYSMENU 0x00080000u
#define WS_MINIMIZEBOX 0x00020000u
#define WS_EX_TOPMOST 0x00000008u
#define WS_EX_APPWINDOW 0x00040000u
#define CW_USEDEFAULT (static_cast<int>(0x80000000u))

#define SW_HIDE 0
#define SW_SHOWNORMAL 1
#define SW_SHOW 5

#define GWL_WNDPROC (-4)
#define GWL_STYLE (-16)
#define GWL_EXSTYLE (-20)
#define GWL_USERDATA (-21)
#define GWLP_WNDPROC (-4)
#define GWLP_USERDATA (-21)

#define SM_CXSCREEN 0
#define SM_CYSCREEN 1
#define SM_CYCAPTION 4
#define SM_CXFIXEDFRAME 7
#define SM_CYFIXEDFRAME 8

#define ERROR_INVALID_WINDOW_HANDLE 1400u
#define ERROR_CANNOT_FIND_WND_CLASS 1407u
#define ERROR_CLASS_ALREADY_EXISTS 1410u
#define ERROR_CLASS_DOES_NOT_EXIST 1411u
#define ERROR_CLASS_HAS_WINDOWS 1412u
#define ERROR_RESOURCE_NAME_NOT_FOUND 1814u

#define HTCLIENT 1
#define PM_NOREMOVE 0x0000
#define PM_REMOVE 0x0001

#define WM_NULL 0x0000
#define WM_CREATE 0x0001
#define WM_DESTROY 0x0002
#define WM_ACTIVATE 0x0006
#define WM_SETFOCUS 0x0007
#define WM_KILLFOCUS 0x0008
#define WM_PAINT 0x000F
#define WM_CLOSE 0x0010
#define WM_QUIT 0x0012
#define WM_ERASEBKGND 0x0014
#define WM_SHOWWINDOW 0x0018
#define WM_ACTIVATEAPP 0x001C
#define WM_SETCURSOR 0x0020
#define WM_NCCREATE 0x0081
#define WM_NCDESTROY 0x0082
#define WM_KEYFIRST 0x0100
#define WM_KEYDOWN 0x0100
#define WM_KEYUP 0x0101
#define WM_CHAR 0x0102
#define WM_SYSKEYDOWN 0x0104
#define WM_SYSKEYUP 0x0105
#define WM_SYSCHAR 0x0106
#define WM_KEYLAST 0x0109
#define WM_TIMER 0x0113
#define WM_MOUSEFIRST 0x0200
#define WM_MOUSEMOVE 0x0200
#define WM_LBUTTONDOWN 0x0201
#define WM_LBUTTONUP 0x0202
#define WM_LBUTTONDBLCLK 0x0203
#define WM_RBUTTONDOWN 0x0204
#define WM_RBUTTONUP 0x0205
#define WM_MOUSELAST 0x020D
#define WM_USER 0x0400
#define WM_APP 0x8000

#define MK_LBUTTON 0x0001
#define MK_RBUTTON 0x0002
#define MK_SHIFT 0x0004
#define MK_CONTROL 0x0008

#define VK_LBUTTON 0x01
#define VK_RBUTTON 0x02
#define VK_BACK 0x08
#define VK_TAB 0x09
#define VK_RETURN 0x0D
#define VK_SHIFT 0x10
#define VK_CONTROL 0x11
#define VK_MENU 0x12
#define VK_PAUSE 0x13
#define VK_CAPITAL 0x14
#define VK_ESCAPE 0x1B
#define VK_SPACE 0x20
#define VK_PRIOR 0x21
#define VK_NEXT 0x22
#define VK_END 0x23
#define VK_HOME 0x24
#define VK_LEFT 0x25
#define VK_UP 0x26
#define VK_RIGHT 0x27
#define VK_DOWN 0x28
#define VK_SNAPSHOT 0x2C
#define VK_INSERT 0x2D
#define VK_DELETE 0x2E
#define VK_NUMPAD0 0x60
#define VK_NUMPAD9 0x69
#define VK_MULTIPLY 0x6A
#define VK_ADD 0x6B
#define VK_SUBTRACT 0x6D
#define VK_DECIMAL 0x6E
#define VK_DIVIDE 0x6F
#define VK_F1 0x70
#define VK_F2 0x71
#define VK_F3 0x72
#define VK_F4 0x73
#define VK_F5 0x74
#define VK_F6 0x75
#define VK_F7 0x76
#define VK_F8 0x77
#define VK_F9 0x78
#define VK_F10 0x79
#define VK_F11 0x7A
#define VK_F12 0x7B
#define VK_OEM_1 0xBA
#define VK_OEM_PLUS 0xBB
#define VK_OEM_COMMA 0xBC
#define VK_OEM_MINUS 0xBD
#define VK_OEM_PERIOD 0xBE
#define VK_OEM_2 0xBF
#define VK_OEM_3 0xC0
#define VK_OEM_4 0xDB
#define VK_OEM_5 0xDC
#define VK_OEM_6 0xDD
#define VK_OEM_7 0xDE

#define MB_OK 0x00000000u
#define MB_ICONERROR 0x00000010u
#define MB_ICONWARNING 0x00000030u
#define MB_ICONINFORMATION 0x00000040u
#define MB_TASKMODAL 0x00002000u
#define MB_SETFOREGROUND 0x00010000u
#define IDOK 1

#define IMAGE_BITMAP 0
#define LR_LOADFROMFILE 0x0010u
#define LR_CREATEDIBSECTION 0x2000u

#define DT_TOP 0x0000
#define DT_LEFT 0x0000
#define DT_CENTER 0x0001
#define DT_RIGHT 0x0002
#define DT_VCENTER 0x0004
#define DT_BOTTOM 0x0008
#define DT_WORDBREAK 0x0010
#define DT_SINGLELINE 0x0020
#define DT_NOCLIP 0x0100
#define DT_CALCRECT 0x0400
#define DT_NOPREFIX 0x0800

struct WNDCLASSA {
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground;
    LPCSTR lpszMenuName;
    LPCSTR lpszClassName;
};

struct CREATESTRUCTA {
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    LONG style;
    LPCSTR lpszName;
    LPCSTR lpszClass;
    DWORD dwExStyle;
};

struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt;
};

using LPMSG = MSG*;

struct PAINTSTRUCT {
    HDC hdc;
    BOOL fErase;
    RECT rcPaint;
    BOOL fRestore;
    BOOL fIncUpdate;
    BYTE rgbReserved[32];
};

// Windows. Only top-level ones; the window shown is the one whose picture is the primary surface.
ATOM WINAPI RegisterClassA(const WNDCLASSA* description);
BOOL WINAPI UnregisterClassA(LPCSTR name, HINSTANCE instance);
HWND WINAPI CreateWindowExA(DWORD exStyle, LPCSTR className, LPCSTR title, DWORD style, int x,
    int y, int width, int height, HWND parent, HMENU menu, HINSTANCE instance, LPVOID parameter);
BOOL WINAPI DestroyWindow(HWND window);
BOOL WINAPI IsWindow(HWND window);
BOOL WINAPI IsWindowVisible(HWND window); ///< False also when there was no display to show it on.
BOOL WINAPI ShowWindow(HWND window, int command);
BOOL WINAPI UpdateWindow(HWND window);
BOOL WINAPI SetWindowTextA(HWND window, LPCSTR title);
BOOL WINAPI GetClientRect(HWND window, LPRECT area);
BOOL WINAPI AdjustWindowRect(LPRECT area, DWORD style, BOOL menu);
int WINAPI GetSystemMetrics(int index);

/// A procedure does not fit into a LONG here, so these take and return a LONG_PTR.
LONG_PTR WINAPI SetWindowLongA(HWND window, int index, LONG_PTR value);
LONG_PTR WINAPI GetWindowLongA(HWND window, int index);
LONG_PTR WINAPI SetWindowLongPtrA(HWND window, int index, LONG_PTR value);
LONG_PTR WINAPI GetWindowLongPtrA(HWND window, int index);

// Messages.
LRESULT WINAPI DefWindowProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT WINAPI CallWindowProcA(
    WNDPROC procedure, HWND window, UINT message, WPARAM wParam, LPARAM lParam);
BOOL WINAPI PeekMessageA(LPMSG message, HWND window, UINT first, UINT last, UINT remove);
BOOL WINAPI GetMessageA(LPMSG message, HWND window, UINT first, UINT last);
BOOL WINAPI TranslateMessage(const MSG* message);
LRESULT WINAPI DispatchMessageA(const MSG* message);
BOOL WINAPI PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT WINAPI SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
void WINAPI PostQuitMessage(int exitCode);

// Keyboard, mouse and focus.
SHORT WINAPI GetKeyState(int key);
SHORT WINAPI GetAsyncKeyState(int key);
HWND WINAPI GetFocus();
HWND WINAPI SetFocus(HWND window);
BOOL WINAPI SetForegroundWindow(HWND window);
BOOL WINAPI GetCursorPos(LPPOINT position);
BOOL WINAPI SetCursorPos(int x, int y);
HCURSOR WINAPI LoadCursorA(HINSTANCE instance, LPCSTR name); ///< The system's own cursors only.
HCURSOR WINAPI SetCursor(HCURSOR cursor); ///< Null hides it over the window.
int WINAPI ShowCursor(BOOL show); ///< The new display count; hidden below 0.

// Painting.
HDC WINAPI GetDC(HWND window); ///< Draws onto the primary surface, where there is one.
int WINAPI ReleaseDC(HWND window, HDC context);
BOOL WINAPI InvalidateRect(HWND window, const RECT* area, BOOL erase);
BOOL WINAPI ValidateRect(HWND window, const RECT* area);
HDC WINAPI BeginPaint(HWND window, PAINTSTRUCT* paint);
BOOL WINAPI EndPaint(HWND window, const PAINTSTRUCT* paint);
int WINAPI FillRect(HDC context, const RECT* area, HBRUSH brush);
int WINAPI DrawTextA(HDC context, LPCSTR text, int count, LPRECT area, UINT format);

/// A message number from 0xC000 to 0xFFFF, the same for every use of a name; 0 on failure.
UINT WINAPI RegisterWindowMessageA(LPCSTR name);

/// Bitmaps from BMP files only: IMAGE_BITMAP with LR_LOADFROMFILE and LR_CREATEDIBSECTION, the path
/// as the system writes it. (A program has no bitmaps as resources here.) The bitmap holds 24 bits
/// a pixel, whatever the file has; 0 for a side means the file's own.
HANDLE WINAPI LoadImageA(
    HINSTANCE instance, LPCSTR name, UINT type, int width, int height, UINT flags);

/// In a box over the shown window; on standard error where nothing is shown.
int WINAPI MessageBoxA(HWND owner, LPCSTR text, LPCSTR caption, UINT type);

} // extern "C"
