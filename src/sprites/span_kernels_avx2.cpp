// SPDX-License-Identifier: MIT
#include "core/vectors_avx2.h"
#include "sprites/pick_vectors.h"
#include "sprites/span_vectors.h"

namespace kez {

const SpanKernels avx2SpanKernels = {
    .copyBlock = copyBlockVectors<Avx2Vectors>,
    .blendBlock = blendBlockVectors<Avx2Vectors>,
    .blend = blendVectors<Avx2Vectors, ZeroOpacity::Blends>,
    .palette = paletteVectors<Avx2Vectors>,
    .blendPlane = { blendPlaneVectors<Avx2Vectors, ZeroOpacity::Blends>,
        blendPlaneVectors<Avx2Vectors, ZeroOpacity::Keeps> },
    .blendPalette = { blendPaletteVectors<Avx2Vectors, ZeroOpacity::Blends>,
        blendPaletteVectors<Avx2Vectors, ZeroOpacity::Keeps> },
    .fill = fillVectors<Avx2Vectors>,
    .blendFill = blendFillVectors<Avx2Vectors>,
    .pick = pickVectors<Avx2Vectors, Avx2Pairs>,
    .reverse = reverseVectors<Avx2Vectors>,
    .quarterTurn = quarterTurnSquares<Avx2Vectors>,
};

} // namespace kez
