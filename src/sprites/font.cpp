// SPDX-License-Identifier: MIT
#include "sprites/font.h"

namespace kez {

namespace {

constexpr int pointsPerInch = 72;

// Negative: the height of the characters rather than of their cells.
int characterHeight(int pointSize)
{
    HDC screen = GetDC(nullptr);
    const int height = -MulDiv(pointSize, GetDeviceCaps(screen, LOGPIXELSY), pointsPerInch);
    ReleaseDC(nullptr, screen);
    return height;
}

} // namespace

Font::Font(const char* face, int points, const FontStyle& ownStyle, Colour ownTextColour)
    : faceName(face)
    , pointSize(points)
    , textColour(ownTextColour)
    , style(ownStyle)
{
    createHandle();
}

Font::~Font()
{
    if (handle_ != nullptr)
        DeleteObject(handle_);
}

const String& Font::className() const
{
    static const String own("Font");
    return own;
}

void Font::createHandle()
{
    if (handle_ != nullptr)
        DeleteObject(handle_);
    if (faceName.empty() && pointSize == 0) {
        handle_ = static_cast<HFONT>(GetStockObject(SYSTEM_FIXED_FONT));
        return;
    }
    handle_ = CreateFontA(characterHeight(pointSize), 0, 0, style.orientation, style.weight,
        style.italic ? 1u : 0u, style.underline ? 1u : 0u, 0, ANSI_CHARSET, OUT_DEFAULT_PRECIS,
        CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH, faceName.c_str());
}

Font& defaultFont()
{
    static Font font(nullptr, 0, {}, 0);
    return font;
}

} // namespace kez
