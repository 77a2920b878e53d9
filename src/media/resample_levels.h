// SPDX-License-Identifier: MIT
/// The loops of resampling of the vector level in use.
#pragma once

#include "core/vector_level.h"
#include "media/resample_kernels.h"

#include <cstddef>

namespace kez {

extern const ResampleKernels* const resampleKernelsOf[vectorLevels]; ///< By level.

inline const ResampleKernels& resampleKernels()
{
    return *resampleKernelsOf[static_cast<std::size_t>(vectorLevel())];
}

} // namespace kez
