// SPDX-License-Identifier: MIT
/// The conversions of the vector level in use.
#pragma once

#include "core/vector_level.h"
#include "display/present_kernel_table.h"

#include <cstddef>

namespace kez {

extern const PresentKernels* const presentKernelsOf[vectorLevels]; ///< By level.

inline const PresentKernels& presentKernels()
{
    return *presentKernelsOf[static_cast<std::size_t>(vectorLevel())];
}

} // namespace kez
