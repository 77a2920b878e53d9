// SPDX-License-Identifier: MIT
#include "core/vector_level.h"
#include "media/resample_kernels.h"

namespace kez {

const ResampleKernels* const resampleKernelsOf[vectorLevels]
    = { &plainResampleKernels, &sse2ResampleKernels, &avx2ResampleKernels, &avx2ResampleKernels };

} // namespace kez
