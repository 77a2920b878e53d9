// SPDX-License-Identifier: MIT
/// The search for packets of the vector level in use.
#pragma once

#include "core/vector_level.h"
#include "media/targa_kernels.h"

#include <cstddef>

namespace kez {

extern const TargaKernels* const targaKernelsOf[vectorLevels]; ///< By level.

inline const TargaKernels& targaKernels()
{
    return *targaKernelsOf[static_cast<std::size_t>(vectorLevel())];
}

} // namespace kez
