// SPDX-License-Identifier: MIT
// Linked to the player's objects: puts the clock of tests, and the visit's mouse, before it and
// before the libraries that it loads, which stay as they are shipped. A visit so takes as long as
// it computes.
#include "control_kernel.h"

#include <mmsystem.h>

#include <cstring>

namespace {

struct Import {
    const char* name;
    void* function;
};

// Each named function is the clock's or the mouse's here.
const Import imports[] = {
    { "Sleep", reinterpret_cast<void*>(&Sleep) },
    { "timeGetTime", reinterpret_cast<void*>(&timeGetTime) },
    { "WaitForSingleObject", reinterpret_cast<void*>(&WaitForSingleObject) },
    { "CreateThread", reinterpret_cast<void*>(&CreateThread) },
    { "GetCursorPos", reinterpret_cast<void*>(&GetCursorPos) },
};

template <typename Type>
Type* at(HMODULE library, DWORD offset)
{
    return reinterpret_cast<Type*>(reinterpret_cast<BYTE*>(library) + offset);
}

void replace(ULONG_PTR& pointer, const char* name)
{
    for (const Import& import : imports) {
        DWORD former = 0;
        if (std::strcmp(import.name, name) != 0
            || !VirtualProtect(&pointer, sizeof pointer, PAGE_READWRITE, &former))
            continue;
        pointer = reinterpret_cast<ULONG_PTR>(import.function);
        VirtualProtect(&pointer, sizeof pointer, former, &former);
    }
}

void replaceImports(HMODULE library)
{
    const auto* file = at<const IMAGE_NT_HEADERS32>(
        library, static_cast<DWORD>(at<const IMAGE_DOS_HEADER>(library, 0)->e_lfanew));
    const IMAGE_DATA_DIRECTORY& directory
        = file->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    const auto* from = at<const IMAGE_IMPORT_DESCRIPTOR>(library, directory.VirtualAddress);
    for (; from->Name != 0; ++from) {
        const auto* name = at<const IMAGE_THUNK_DATA32>(library, from->OriginalFirstThunk);
        auto* pointer = at<IMAGE_THUNK_DATA32>(library, from->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++pointer)
            if (!IMAGE_SNAP_BY_ORDINAL32(name->u1.Ordinal))
                replace(pointer->u1.Function,
                    at<const IMAGE_IMPORT_BY_NAME>(library, name->u1.AddressOfData)->Name);
    }
}

// Before main: the player never knows.
struct BeforeMain {
    BeforeMain()
    {
        replaceImports(GetModuleHandleA("kez.dll"));
        replaceImports(LoadLibraryA("qxdcdll.dll"));
        kez::winapi::useScriptClock(1000);
    }
} beforeMain;

} // namespace
