// SPDX-License-Identifier: MIT
#include "platform/large_memory.h"

#include <cstdint>
#include <cstdlib>

#include <sys/mman.h>
#include <unistd.h>

namespace kez {

namespace {

constexpr std::size_t largePageBytes = std::size_t { 2 } << 20;

} // namespace

void* allocateLarge(std::size_t bytes)
{
    if (bytes < largePageBytes)
        return std::malloc(bytes);
    void* memory = nullptr;
    if (posix_memalign(&memory, largePageBytes, bytes) != 0)
        return nullptr;
    // A refusal costs time only.
    madvise(memory, bytes / largePageBytes * largePageBytes, MADV_HUGEPAGE);
    return memory;
}

void giveBack(void* memory, std::size_t bytes)
{
    const auto pageBytes = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
    const auto start = reinterpret_cast<std::uintptr_t>(memory);
    const std::uintptr_t first = (start + pageBytes - 1) / pageBytes * pageBytes;
    const std::uintptr_t end = (start + bytes) / pageBytes * pageBytes;
    if (first < end)
        madvise(reinterpret_cast<void*>(first), end - first, MADV_DONTNEED);
}

} // namespace kez
