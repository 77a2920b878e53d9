// SPDX-License-Identifier: MIT
#include "sprites/text.h"

#include "core/data_file.h"
#include "display/canvas.h"

namespace kez {

namespace {

constexpr COLORREF colourBytes = 0x00FFFFFF;

// A font for as long as it is selected into a context; without a handle the context keeps its own.
class SelectedFont {
public:
    SelectedFont(HDC context, const Font& font)
        : context_(context)
        , former_(font.handle() != nullptr ? SelectObject(context, font.handle()) : nullptr)
    {
    }

    ~SelectedFont()
    {
        if (former_ != nullptr)
            SelectObject(context_, former_);
    }

    SelectedFont(const SelectedFont&) = delete;
    SelectedFont& operator=(const SelectedFont&) = delete;

private:
    HDC context_;
    HGDIOBJ former_;
};

// Which way an anchored centre moves.
int sign(int anchor)
{
    return (anchor > 0) - (anchor < 0);
}

unsigned alignment(int anchor, unsigned below, unsigned centre, unsigned above)
{
    return anchor == 0 ? centre : anchor > 0 ? above : below;
}

} // namespace

Text::Text(const char* ownText, const Placement& placement, bool shown, Colour ownColour,
    const Anchors& ownAnchors, std::uint32_t ownWord36)
    : Graphic(placement, shown, ownColour)
    , word36(ownWord36)
    , fontColour(defaultFont().textColour)
    , anchors(ownAnchors)
    , font_(&defaultFont())
    , text_(ownText)
{
}

Text* Text::clone() const
{
    return new Text(*this);
}

const String& Text::className() const
{
    static const String own("Text");
    return own;
}

void Text::serialize(DataFile& file)
{
    Graphic::serialize(file);
    file.transfer(text_);
    auto fontWord = static_cast<std::int32_t>(fontColour);
    std::int32_t wrap = wordWrap ? 1 : 0;
    for (std::int32_t* word : { &fontWord, &anchors.vertical, &anchors.horizontal, &wrap })
        file.transfer(*word);
    fontColour = static_cast<Colour>(fontWord);
    wordWrap = wrap != 0;
}

void Text::setFont(const Font& newFont, Fit fit)
{
    font_ = &newFont;
    fontColour = newFont.textColour;
    if (fit == Fit::Measure)
        measure();
}

void Text::setText(const char* newText, Fit fit)
{
    if (newText != nullptr) {
        text_ = newText;
        if (fit == Fit::Measure)
            measure();
    }
    changed();
}

void Text::measure()
{
    const String measured = text_.empty() ? String(" ") : text_;
    SIZE size = {};
    HDC screen = GetDC(nullptr);
    {
        const SelectedFont selected(screen, *font_);
        GetTextExtentPoint32A(screen, measured.c_str(), measured.length(), &size);
    }
    ReleaseDC(nullptr, screen);
    x += sign(anchors.horizontal) * (static_cast<int>(size.cx) - width);
    y += sign(anchors.vertical) * (static_cast<int>(size.cy) - height);
    width = baseWidth = static_cast<int>(size.cx);
    height = baseHeight = static_cast<int>(size.cy);
    changed();
}

unsigned Text::drawFormat() const
{
    const unsigned across = alignment(anchors.horizontal, DT_LEFT, DT_CENTER, DT_RIGHT);
    const unsigned down = wordWrap ? DT_WORDBREAK
                                   : alignment(anchors.vertical, DT_SINGLELINE | DT_BOTTOM,
                                       DT_SINGLELINE | DT_VCENTER, DT_TOP);
    return across | down | DT_NOPREFIX | DT_NOCLIP;
}

void Text::draw()
{
    HDC context = targetDeviceContext();
    if (context == nullptr)
        return;
    const COLORREF formerColour = SetTextColor(context, colour & colourBytes);
    const int formerMode = SetBkMode(context, TRANSPARENT);
    {
        const SelectedFont selected(context, *font_);
        RECT area { left(), top(), right(), bottom() };
        DrawTextA(context, text_.c_str(), text_.length(), &area, drawFormat());
    }
    SetTextColor(context, formerColour);
    SetBkMode(context, formerMode);
}

} // namespace kez
