// SPDX-License-Identifier: MIT
#include "platform/large_memory.h"

#include <cstdlib>

#include <sys/mman.h>

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

} // namespace kez
