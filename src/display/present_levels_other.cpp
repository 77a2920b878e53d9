// SPDX-License-Identifier: MIT
// On machines without these vector levels the plain rules are all there is.
#include "display/present_levels.h"

namespace kez {

const PresentKernels* const presentKernelsOf[vectorLevels]
    = { &plainPresentKernels, &plainPresentKernels, &plainPresentKernels, &plainPresentKernels };

} // namespace kez
