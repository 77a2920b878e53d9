// SPDX-License-Identifier: MIT
#include "core/vectors_avx512.h"
#include "sprites/pick_vectors.h"
#include "sprites/span_vectors.h"

namespace kez {

const SpanKernels avx512SpanKernels = {
    .copyBlock = copyBlockVectors<Avx512Vectors>,
    .blendBlock = blendBlockVectors<Avx512Vectors>,
    .blend = blendVectors<Avx512Vectors, ZeroOpacity::Blends>,
    .palette = paletteVectors<Avx512Vectors>,
    .blendPlane = { blendPlaneVectors<Avx512Vectors, ZeroOpacity::Blends>,
        blendPlaneVectors<Avx512Vectors, ZeroOpacity::Keeps> },
    .blendPalette = { blendPaletteVectors<Avx512Vectors, ZeroOpacity::Blends>,
        blendPaletteVectors<Avx512Vectors, ZeroOpacity::Keeps> },
    .fill = fillVectors<Avx512Vectors>,
    .blendFill = blendFillVectors<Avx512Vectors>,
    .pick = pickVectors<Avx512Vectors, Avx512Triples>,
    .reverse = reverseVectors<Avx512Vectors>,
    .quarterTurn = quarterTurnSquares<Avx2Vectors>,
};

} // namespace kez
