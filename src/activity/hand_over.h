// SPDX-License-Identifier: MIT
/// The end of a run: the picture that the child chose goes back to the host, through `Kez::image`
/// and its companions, which the host declares.
#pragma once

namespace kez {

/// Hands over copies of `pixels` (width × height pixels of three bytes) and of `name`, either of
/// which may be null, and ends the run: the next `Kez::process` is its last. A picture larger than
/// 320 × 240 or of negative size, and a name of more than eight characters, are refused with a
/// diagnostic; the host then finds null in their place, and the run ends all the same.
void finishWithImage(const char* name, const unsigned char* pixels, int width, int height);

void forgetHandedImage(); ///< `Kez::image` becomes null; the name and the sizes stay.

} // namespace kez
