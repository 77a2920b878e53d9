// SPDX-License-Identifier: MIT
/// Fonts, brushes and bitmaps behind their handles. A selected object cannot be deleted; stock
/// objects never.
#pragma once

#include "bmp_decoder.h"
#include "font.h"
#include "handles.h"
#include "pixel_format.h"

#include <variant>

namespace kez::winapi {

struct Brush {
    Colour colour {};
    bool paints = true; ///< False for the null brush.
};

struct GdiObject {
    std::variant<Font, Brush, Bitmap> what;
    bool stock = false;
    int selections = 0;
};

HandleTable<GdiObject, HGDIOBJ>& gdiObjects();
[[nodiscard]] int ownGdiObjects(); ///< Those that programs made.
[[nodiscard]] GdiObject& noBitmap(); ///< What every memory context starts with.
[[nodiscard]] GdiObject& systemFont(); ///< What every device context starts with.

} // namespace kez::winapi
