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

} // namespace

void writeText(HDC context, const RECT& area, const std::string& text, const TextLook& look)
{
    const SelectedFont font(context, look.height, look.weight);
    SetBkMode(context, TRANSPARENT);
    SetTextColor(context, look.colour);
    RECT place = area;
    DrawTextA(
        context, text.c_str(), static_cast<int>(text.size()), &place, look.placing | DT_NOPREFIX);
}

} // namespace kez::player
