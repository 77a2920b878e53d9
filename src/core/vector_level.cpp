// SPDX-License-Identifier: MIT
#include "core/vector_level.h"

#include <algorithm>

namespace kez {

namespace {

VectorLevel measuredLevel()
{
#if defined(__x86_64__) || defined(__i386__)
    __builtin_cpu_init();
    if (__builtin_cpu_supports("avx2") == 0)
        return __builtin_cpu_supports("sse2") != 0 ? VectorLevel::Sse2 : VectorLevel::Plain;
    const bool hasAvx512 = __builtin_cpu_supports("avx512f") != 0
        && __builtin_cpu_supports("avx512bw") != 0 && __builtin_cpu_supports("avx512dq") != 0
        && __builtin_cpu_supports("avx512vl") != 0 && __builtin_cpu_supports("avx512vbmi") != 0;
    return hasAvx512 ? VectorLevel::Avx512 : VectorLevel::Avx2;
#else
    return VectorLevel::Plain;
#endif
}

} // namespace

namespace detail {
VectorLevel vectorLevel = measuredLevel();
}

VectorLevel bestVectorLevel()
{
    static const VectorLevel best = measuredLevel();
    return best;
}

void limitVectorLevel(VectorLevel level)
{
    detail::vectorLevel = std::min(level, bestVectorLevel());
}

const char* nameOf(VectorLevel level)
{
    switch (level) {
    case VectorLevel::Sse2:
        return "SSE2";
    case VectorLevel::Avx2:
        return "AVX2";
    case VectorLevel::Avx512:
        return "AVX-512";
    case VectorLevel::Plain:
        break;
    }
    return "plain";
}

} // namespace kez
