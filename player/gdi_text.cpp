// SPDX-License-Identifier: MIT
#include "gdi_text.h"

namespace kez::player {

namespace {

// A font for as long as it is selected into a context.
class SelectedFont {
public:
    SelectedFont(HDC context, int height, int weight)
        : context_(context)
        , font_(CreateFontA(-height, 0, 0, 0, weight, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
              OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, VARIABLE_PITCH, "Verdana"))
        , former_(SelectObject(context, font_))
    {
    }

    ~SelectedFont()
    {
        SelectObject(context_, former_);
        DeleteObject(font_);
    }

    SelectedFont(const SelectedFont&) = delete;
    SelectedFont& operator=(const SelectedFont&) = delete;

private:
    HDC context_;
    HFONT font_;
    HGDIOBJ former_;
};

void drawLines(HDC context, const std::string& text, RECT& place, UINT format)
{
    DrawTextA(context, text.c_str(), static_cast<int>(text.size()), &place, format | DT_NOPREFIX);
}

} // namespace

void writeText(HDC context, const RECT& area, const std::string& text, const TextLook& look)
{
    const SelectedFont font(context, look.height, look.weight);
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, look.colour);
    RECT place = area;
    drawLines(context, text, place, look.placing);
}

void writeInMiddle(HDC context, const RECT& area, const std::string& text, const TextLook& look)
{
    RECT place = area;
    {
        const SelectedFont font(context, look.height, look.weight);
        drawLines(context, text, place, look.placing | DT_CALCRECT);
    }
    const LONG spare = (area.bottom - area.top) - (place.bottom - place.top);
    place = area;
    place.top += spare > 0 ? spare / 2 : 0;
    writeText(context, place, text, look);
}

} // namespace kez::player
