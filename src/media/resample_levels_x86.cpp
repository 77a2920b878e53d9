// SPDX-License-Identifier: MIT
#include "media/resample_levels.h"

namespace kez {

const ResampleKernels* const resampleKernelsOf[vectorLevels]
    = { &plainResampleKernels, &sse2ResampleKernels, &avx2ResampleKernels, &avx2ResampleKernels };

} // namespace kez
