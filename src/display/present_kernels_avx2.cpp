// SPDX-License-Identifier: MIT
#include "core/vectors_avx2.h"
#include "display/present_vectors.h"

namespace kez {

const PresentKernels avx2PresentKernels = { to565Vectors<Avx2Vectors>, to555Vectors<Avx2Vectors>,
    toOther16Vectors<Avx2Vectors>, to24Vectors<Avx2Vectors> };

} // namespace kez
