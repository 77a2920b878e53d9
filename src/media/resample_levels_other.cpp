// SPDX-License-Identifier: MIT
// On machines without these vector levels the plain loops are all there is.
#include "media/resample_levels.h"

namespace kez {

const ResampleKernels* const resampleKernelsOf[vectorLevels] = { &plainResampleKernels,
    &plainResampleKernels, &plainResampleKernels, &plainResampleKernels };

} // namespace kez
