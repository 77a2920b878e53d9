// SPDX-License-Identifier: MIT
#include "media/targa_levels.h"

namespace kez {

const TargaKernels* const targaKernelsOf[vectorLevels]
    = { &plainTargaKernels, &sse2TargaKernels, &avx2TargaKernels, &avx2TargaKernels };

} // namespace kez
