// SPDX-License-Identifier: MIT
/// Shows a picture at another size. Enlarging in either direction interpolates between the four
/// nearest pixels; reducing in both averages an area with weights that fall off with the distance
/// from the sample point. All arithmetic is in double precision and truncates; nothing rounds, so a
/// picture looks the same, to the bit, on every machine.
#pragma once

#include <cstdint>

namespace kez {

/// Resamples sw × sh pixels of three bytes (rows without gaps) to dw × dh. `*destination` must hold
/// dw × dh × 3 bytes; when it is null a buffer is allocated (new[]) and becomes the caller's. Does
/// nothing when a pointer is null or a size is not positive.
void resamplePicture(
    const std::uint8_t* source, int sw, int sh, std::uint8_t** destination, int dw, int dh);

} // namespace kez
