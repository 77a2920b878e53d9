// SPDX-License-Identifier: MIT
#include "sprites/span_kernels.h"

namespace kez {

const SpanKernels* const spanKernelsOf[vectorLevels]
    = { &plainSpanKernels, &sse2SpanKernels, &avx2SpanKernels, &avx512SpanKernels };

} // namespace kez
