// SPDX-License-Identifier: MIT
/// Every vector level of this processor in turn, for comparing them with the plain rules.
#pragma once

#include "core/vector_level.h"

#include <gtest/gtest.h>

namespace kez::test {

/// Calls `check` with each level in force.
void atEachVectorLevel(auto&& check)
{
    for (const VectorLevel level :
        { VectorLevel::Plain, VectorLevel::Sse2, VectorLevel::Avx2, VectorLevel::Avx512 }) {
        if (level > bestVectorLevel())
            break;
        SCOPED_TRACE(nameOf(level));
        limitVectorLevel(level);
        check();
    }
    limitVectorLevel(VectorLevel::Avx512);
}

} // namespace kez::test
