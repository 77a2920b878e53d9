// SPDX-License-Identifier: MIT
// Large pages are a privilege there that hardly anyone has.
#include "platform/large_memory.h"

#include <cstdint>
#include <cstdlib>

#include <windows.h>

namespace kez {

void* allocateLarge(std::size_t bytes)
{
    return std::malloc(bytes);
}

void giveBack(void* memory, std::size_t bytes)
{
    SYSTEM_INFO system;
    GetSystemInfo(&system);
    const auto start = reinterpret_cast<std::uintptr_t>(memory);
    const std::uintptr_t pageBytes = system.dwPageSize;
    const std::uintptr_t first = (start + pageBytes - 1) / pageBytes * pageBytes;
    const std::uintptr_t end = (start + bytes) / pageBytes * pageBytes;
    if (first < end)
        VirtualAlloc(reinterpret_cast<void*>(first), end - first, MEM_RESET, PAGE_READWRITE);
}

} // namespace kez
