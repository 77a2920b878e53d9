// SPDX-License-Identifier: MIT
// Large pages are a privilege there that hardly anyone has.
#include "platform/large_memory.h"

#include <cstdlib>

namespace kez {

void* allocateLarge(std::size_t bytes)
{
    return std::malloc(bytes);
}

} // namespace kez
