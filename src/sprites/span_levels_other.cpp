// SPDX-License-Identifier: MIT
// On machines without these vector levels the plain rules are all there is.
#include "sprites/span_kernels.h"

namespace kez {

const SpanKernels* const spanKernelsOf[vectorLevels]
    = { &plainSpanKernels, &plainSpanKernels, &plainSpanKernels, &plainSpanKernels };

} // namespace kez
