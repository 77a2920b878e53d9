// SPDX-License-Identifier: MIT
// A fuzzer's way into the entry that the build names.
#include "fuzz/entries.h"

#include <cstddef>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    kez::fuzz::KEZ_FUZZ_ENTRY({ data, size });
    return 0;
}
