// SPDX-License-Identifier: MIT
// The compiler's thread runtime, which is linked into the library, keeps two handles for each
// thread that needed it, until that thread ends, and a thread-local index until the program does. A
// library that comes and goes would leave them behind each time: here they are given back, those of
// the thread that unloads, as the very last thing before the library goes.
#include "platform/library_life.h"

#include <windows.h>

#include <array>
#include <cstddef>

extern "C" const IMAGE_TLS_DIRECTORY _tls_used; // the linker's: who is told when threads end

namespace {

std::array<DWORD, 8> indices;
std::size_t indexCount = 0;

DWORD WINAPI allocateIndex()
{
    const auto allocate = reinterpret_cast<DWORD(WINAPI*)()>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("kernel32"), "TlsAlloc")));
    const DWORD index = allocate();
    if (index != TLS_OUT_OF_INDEXES && indexCount < indices.size())
        indices[indexCount++] = index;
    return index;
}

// As if the thread ended.
void forgetThisThread()
{
    const auto* tell = reinterpret_cast<const PIMAGE_TLS_CALLBACK*>(_tls_used.AddressOfCallBacks);
    for (; *tell != nullptr; ++tell)
        (*tell)(nullptr, DLL_THREAD_DETACH, nullptr);
}

// Such functions are called when all static objects have been destroyed.
[[gnu::destructor]] void giveBack()
{
    if (kez::platform::isAloneAtTheEnd())
        return;
    forgetThisThread();
    while (indexCount > 0)
        TlsFree(indices[--indexCount]);
}

} // namespace

// Calls of imported functions go through such a pointer; who defines it first decides what is
// called.
extern "C" void* const kezImportOfTlsAlloc __asm__("__imp__TlsAlloc@0");
void* const kezImportOfTlsAlloc = reinterpret_cast<void*>(&allocateIndex);
