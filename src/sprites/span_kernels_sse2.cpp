// SPDX-License-Identifier: MIT
#include "core/vectors_sse2.h"
#include "sprites/pick_vectors.h"
#include "sprites/span_vectors.h"

namespace kez {

const SpanKernels sse2SpanKernels = {
    .copyBlock = copyBlockVectors<Sse2Vectors>,
    .blendBlock = blendBlockVectors<Sse2Vectors>,
    .blend = blendVectors<Sse2Vectors, ZeroOpacity::Blends>,
    .palette = paletteVectors<Sse2Vectors>,
    .blendPlane = { blendPlaneVectors<Sse2Vectors, ZeroOpacity::Blends>,
        blendPlaneVectors<Sse2Vectors, ZeroOpacity::Keeps> },
    .blendPalette = { blendPaletteVectors<Sse2Vectors, ZeroOpacity::Blends>,
        blendPaletteVectors<Sse2Vectors, ZeroOpacity::Keeps> },
    .fill = fillVectors<Sse2Vectors>,
    .blendFill = blendFillVectors<Sse2Vectors>,
    .pick = pickFours,
    .reverse = reverseVectors<Sse2Vectors>,
    .quarterTurn = quarterTurnSquares<Sse2Vectors>,
};

} // namespace kez
