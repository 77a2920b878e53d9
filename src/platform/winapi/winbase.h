// SPDX-License-Identifier: MIT
/// The kernel's part of the Win32 names: time, threads, the last error and its text, libraries
/// loaded by name, rounding, and diagnostics. Values and failure rules are the platform's;
/// what a program of ours does not use is absent. Every function may be called on any thread.
#pragma once

#include "windef.h"

#include <cstdarg>

#define NO_ERROR 0u
#define ERROR_SUCCESS 0u
#define ERROR_INVALID_FUNCTION 1u
#define ERROR_FILE_NOT_FOUND 2u
#define ERROR_PATH_NOT_FOUND 3u
#define ERROR_TOO_MANY_OPEN_FILES 4u
#define ERROR_ACCESS_DENIED 5u
#define ERROR_INVALID_HANDLE 6u
#define ERROR_NOT_ENOUGH_MEMORY 8u
#define ERROR_OUTOFMEMORY 14u
#define ERROR_WRITE_PROTECT 19u
#define ERROR_NOT_READY 21u
#define ERROR_WRITE_FAULT 29u
#define ERROR_READ_FAULT 30u
#define ERROR_GEN_FAILURE 31u
#define ERROR_SHARING_VIOLATION 32u
#define ERROR_HANDLE_EOF 38u
#define ERROR_HANDLE_DISK_FULL 39u
#define ERROR_NOT_SUPPORTED 50u
#define ERROR_FILE_EXISTS 80u
#define ERROR_INVALID_PARAMETER 87u
#define ERROR_DISK_FULL 112u
#define ERROR_INSUFFICIENT_BUFFER 122u
#define ERROR_INVALID_NAME 123u
#define ERROR_MOD_NOT_FOUND 126u
#define ERROR_PROC_NOT_FOUND 127u
#define ERROR_DIR_NOT_EMPTY 145u
#define ERROR_BUSY 170u
#define ERROR_ALREADY_EXISTS 183u
#define ERROR_BAD_EXE_FORMAT 193u
#define ERROR_FILENAME_EXCED_RANGE 206u
#define ERROR_FILE_TOO_LARGE 223u
#define ERROR_DIRECTORY 267u
#define ERROR_MR_MID_NOT_FOUND 317u
#define ERROR_IO_DEVICE 1117u
#define ERROR_FILE_CORRUPT 1392u

#define FORMAT_MESSAGE_IGNORE_INSERTS 0x00000200u
#define FORMAT_MESSAGE_FROM_SYSTEM 0x00001000u

#define INFINITE 0xFFFFFFFFu
#define WAIT_OBJECT_0 0u
#define WAIT_TIMEOUT 258u
#define WAIT_FAILED 0xFFFFFFFFu

#define GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT 0x00000002u
#define GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS 0x00000004u

using LPSECURITY_ATTRIBUTES = struct SecurityAttributes*; // only null is ever passed
using LPTHREAD_START_ROUTINE = DWORD(WINAPI*)(LPVOID);
using FARPROC = INT_PTR(WINAPI*)();

extern "C" {

DWORD WINAPI GetLastError();
void WINAPI SetLastError(DWORD code);

/// The English text of a code, ending with a carriage return and a line feed. Takes
/// FORMAT_MESSAGE_FROM_SYSTEM, with or without FORMAT_MESSAGE_IGNORE_INSERTS. Returns the length;
/// 0 and ERROR_MR_MID_NOT_FOUND for a code without text, 0 when the text does not fit.
DWORD WINAPI FormatMessageA(DWORD flags, LPCVOID source, DWORD code, DWORD language, LPSTR text,
    DWORD textSize, va_list* arguments);

/// Goes where `control_kernel.h` and `desktop.h` send it; by default nowhere.
void WINAPI OutputDebugStringA(LPCSTR text);

void WINAPI Sleep(DWORD milliseconds);
DWORD WINAPI GetTickCount();

/// Starts a thread at once. The stack size, the attributes and the flags must be 0 or null. The
/// handle outlives the thread until it is closed.
HANDLE WINAPI CreateThread(LPSECURITY_ATTRIBUTES attributes, SIZE_T stackSize,
    LPTHREAD_START_ROUTINE start, LPVOID argument, DWORD flags, LPDWORD threadId);
DWORD WINAPI GetCurrentThreadId();
DWORD WINAPI WaitForSingleObject(HANDLE thread, DWORD milliseconds);
BOOL WINAPI CloseHandle(HANDLE handle);

/// A bare name such as "qxdcdll" stands for libqxdcdll.so, looked for beside the program, beside
/// this library and then where the system's loader looks. A name with a path is taken as it is.
HMODULE WINAPI LoadLibraryA(LPCSTR name);
BOOL WINAPI FreeLibrary(HMODULE library);
FARPROC WINAPI GetProcAddress(HMODULE library, LPCSTR name);
/// The program itself (null) or a library that is loaded; null when it is not.
HMODULE WINAPI GetModuleHandleA(LPCSTR name);
/// The program or library that an address lies in, with or without counting a use of it. Takes
/// GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS alone or with the other flag.
BOOL WINAPI GetModuleHandleExA(DWORD flags, LPCSTR address, HMODULE* library);
/// Ends a thread of CreateThread; the library may be gone, with the code that called this.
[[noreturn]] void WINAPI FreeLibraryAndExitThread(HMODULE library, DWORD exitCode);
/// The full path of a library's file, or of the program's (null). Returns the length; a path that
/// does not fit is cut and the size is returned.
DWORD WINAPI GetModuleFileNameA(HMODULE library, LPSTR path, DWORD pathSize);

/// number × numerator / denominator, rounded to nearest, halves away from 0; −1 when it does not
/// fit or the denominator is 0.
int WINAPI MulDiv(int number, int numerator, int denominator);

} // extern "C"
