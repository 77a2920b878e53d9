// SPDX-License-Identifier: MIT
// On machines without these vector levels the plain search is all there is.
#include "media/targa_levels.h"

namespace kez {

const TargaKernels* const targaKernelsOf[vectorLevels]
    = { &plainTargaKernels, &plainTargaKernels, &plainTargaKernels, &plainTargaKernels };

} // namespace kez
