// SPDX-License-Identifier: MIT
/// Kez as a program has it that loads the library by itself: its functions by their names.
#pragma once

#include <windows.h>

#include <mmsystem.h>

#include <ddraw.h>
#include <dsound.h>

#include <string>
#include <type_traits>

namespace kez::life {

class LoadedLibrary {
public:
    explicit LoadedLibrary(const std::string& file)
        : handle_(LoadLibraryA(file.c_str()))
    {
        take("_ZN3Kez4openEv", open);
        take("_ZN3Kez3runENS_6ModuleEibb", run);
        take("_ZN3Kez7processEv", process);
        take("_ZN3Kez7releaseEv", release);
        take(std::is_same_v<DWORD, unsigned long> // on Windows alone
                ? "_ZN3Kez10initializeEP6HWND__P12IDirectSoundP11IDirectDrawP18IDirectDrawSurface"
                  "S7_iPKcmmmm"
                : "_ZN3Kez10initializeEP6HWND__P12IDirectSoundP11IDirectDrawP18IDirectDrawSurface"
                  "S7_iPKcjjjj",
            initialize);
    }

    explicit operator bool() const { return complete_; }

    /// Lets the library go. True when it was still there.
    bool free() { return FreeLibrary(handle_) != FALSE; }

    void (*open)() = nullptr;
    void (*run)(int module, int diskBudget, bool song, bool intro) = nullptr;
    bool (*process)() = nullptr;
    void (*release)() = nullptr;
    void (*initialize)(HWND, IDirectSound*, IDirectDraw*, IDirectDrawSurface*, IDirectDrawSurface*,
        int, const char*, DWORD, DWORD, DWORD, DWORD)
        = nullptr;

private:
    template <class Function>
    void take(const char* name, Function& function)
    {
        function = reinterpret_cast<Function>(
            reinterpret_cast<void*>(handle_ == nullptr ? nullptr : GetProcAddress(handle_, name)));
        complete_ &= function != nullptr;
    }

    HMODULE handle_;
    bool complete_ = true;
};

} // namespace kez::life
