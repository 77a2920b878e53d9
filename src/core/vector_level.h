// SPDX-License-Identifier: MIT
/// Which vector instructions the loops over pixels and samples may use: the one place where that is
/// chosen. A family of such loops is a table of functions, one for each level; it is asked for the
/// level of the moment at every call, so that tests can force each level in turn.
#pragma once

#include <cstddef>

namespace kez {

/// Each level has all that the ones before it have. `Plain` is the rule as it reads, and what a
/// machine of another kind gets. `Avx512` stands for AVX-512 F, BW, DQ, VL and VBMI together.
enum class VectorLevel { Plain, Sse2, Avx2, Avx512 };

constexpr std::size_t vectorLevels = 4;

/// What this processor has.
[[nodiscard]] VectorLevel bestVectorLevel();

/// Lowers the level; above the best one nothing changes. For tests and benchmarks.
void limitVectorLevel(VectorLevel level);

namespace detail {
extern VectorLevel vectorLevel; // Plain until static objects are built, which is exact as well
}

[[nodiscard]] inline VectorLevel vectorLevel()
{
    return detail::vectorLevel;
}

[[nodiscard]] const char* nameOf(VectorLevel level);

} // namespace kez
