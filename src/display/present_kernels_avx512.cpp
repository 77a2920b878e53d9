// SPDX-License-Identifier: MIT
#include "core/vectors_avx512.h"
#include "display/present_vectors.h"

namespace kez {

const PresentKernels avx512PresentKernels = { to565Vectors<Avx512Vectors>,
    to555Vectors<Avx512Vectors>, toOther16Vectors<Avx512Vectors>, to24Vectors<Avx512Vectors> };

} // namespace kez
