// SPDX-License-Identifier: MIT
#include "process_counts.h"

#include <tlhelp32.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace kez::life {

namespace {

long threads()
{
    const HANDLE all = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    THREADENTRY32 one {};
    one.dwSize = sizeof one;
    long count = 0;
    for (BOOL more = Thread32First(all, &one); more != FALSE; more = Thread32Next(all, &one))
        count += one.th32OwnerProcessID == GetCurrentProcessId() ? 1 : 0;
    CloseHandle(all);
    return count;
}

// Some systems do not count. A handle holds the index of a place in a table, and free places are
// taken first: with more new objects than there are free places, the highest index tells how many
// places are taken.
constexpr std::size_t moreThanFree = 256;

template <class Make, class Destroy>
long highestOf(Make make, Destroy destroy)
{
    std::vector<decltype(make())> made(moreThanFree);
    std::ranges::generate(made, make);
    long highest = 0;
    for (const auto object : made) {
        const auto index = reinterpret_cast<std::uintptr_t>(object) & 0xFFFF;
        highest = std::max(highest, static_cast<long>(index));
        destroy(object);
    }
    return highest;
}

long handles()
{
    DWORD count = 0;
    if (GetProcessHandleCount(GetCurrentProcess(), &count) != FALSE && count != 0)
        return static_cast<long>(count);
    return highestOf([] { return CreateEventA(nullptr, FALSE, FALSE, nullptr); }, CloseHandle) / 4;
}

long gdiObjects()
{
    const DWORD count = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS);
    if (count != 0)
        return static_cast<long>(count);
    return highestOf([] { return CreateSolidBrush(0); }, DeleteObject);
}

// Given out from the lowest free one on.
long threadLocals()
{
    const DWORD lowestFree = TlsAlloc();
    TlsFree(lowestFree);
    return static_cast<long>(lowestFree);
}

HRESULT WINAPI countSurface(LPDIRECTDRAWSURFACE surface, LPDDSURFACEDESC, LPVOID count)
{
    ++*static_cast<int*>(count);
    surface->Release(); // enumerating uses it
    return DDENUMRET_OK;
}

} // namespace

ProcessCounts processCounts()
{
    return { { "threads", threads() }, { "handles", handles() }, { "GDI objects", gdiObjects() },
        { "thread-local indices", threadLocals() },
        { "USER objects",
            static_cast<long>(GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS)) } };
}

int surfacesOf(IDirectDraw& directDraw)
{
    int count = 0;
    directDraw.EnumSurfaces(
        DDENUMSURFACES_ALL | DDENUMSURFACES_DOESEXIST, nullptr, &count, countSurface);
    return count;
}

} // namespace kez::life
