// SPDX-License-Identifier: MIT
#include "core/vectors_sse2.h"
#include "display/present_vectors.h"

namespace kez {

const PresentKernels sse2PresentKernels = { to565Vectors<Sse2Vectors>, to555Vectors<Sse2Vectors>,
    toOther16Vectors<Sse2Vectors>, to24Vectors<Sse2Vectors> };

} // namespace kez
