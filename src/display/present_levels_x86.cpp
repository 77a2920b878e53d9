// SPDX-License-Identifier: MIT
#include "display/present_levels.h"

namespace kez {

const PresentKernels* const presentKernelsOf[vectorLevels]
    = { &plainPresentKernels, &sse2PresentKernels, &avx2PresentKernels, &avx512PresentKernels };

} // namespace kez
