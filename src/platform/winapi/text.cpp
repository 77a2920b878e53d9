// SPDX-License-Identifier: MIT
/// Measuring and drawing of text on a device context.
#include "ansi_text.h"
#include "device_context.h"
#include "surface.h"
#include "wingdi.h"
#include "winuser.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace kez::winapi {

namespace {

using Lines = std::vector<std::string_view>;

constexpr RECT unbounded { INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX };

int widthOf(Font& font, std::string_view text)
{
    int width = 0;
    while (!text.empty())
        width += font.glyph(takeDrawn(text)).advance;
    return width;
}

BYTE mix(BYTE below, BYTE above, int coverage)
{
    return static_cast<BYTE>((below * (255 - coverage) + above * coverage + 127) / 255);
}

void blend(const PixelView& view, int x, int y, Colour ink, int coverage)
{
    BYTE* pixel = view.at(x, y);
    const Colour below = view.format->unpack(view.format->read(pixel));
    view.format->paint(pixel,
        { mix(below.red, ink.red, coverage), mix(below.green, ink.green, coverage),
            mix(below.blue, ink.blue, coverage) });
}

void drawGlyph(
    const PixelView& view, const Glyph& glyph, int left, int top, const RECT& clip, Colour ink)
{
    const RECT seen = intersection(clip, { left, top, left + glyph.width, top + glyph.rows });
    for (int y = seen.top; y < seen.bottom; ++y) {
        const BYTE* row
            = glyph.coverage.data() + static_cast<std::ptrdiff_t>(y - top) * glyph.width;
        for (int x = seen.left; x < seen.right; ++x) {
            if (row[x - left] != 0)
                blend(view, x, y, ink, row[x - left]);
        }
    }
}

/// Draws a line whose top left corner is (x, y), in device pixels.
void drawLine(DeviceContext& context, std::string_view text, int x, int y, const RECT& clip)
{
    const PixelView view = context.target();
    if (!view)
        return;
    Font& font = context.textFont();
    const Colour ink = Colour::of(context.textColour);
    const int end = x + widthOf(font, text);
    if (context.backMode == OPAQUE)
        fillPixels(context, intersection(clip, { x, y, end, y + font.height() }),
            Colour::of(context.backColour));
    const RECT seen = intersection(clip, { 0, 0, view.width, view.height });
    if (font.underlined()) {
        const int top = y + font.underlineTop();
        fillPixels(
            context, intersection(clip, { x, top, end, top + font.underlineThickness() }), ink);
    }
    while (!text.empty()) {
        const Glyph& glyph = font.glyph(takeDrawn(text));
        drawGlyph(view, glyph, x + glyph.left, y + font.ascent() - glyph.top, seen, ink);
        x += glyph.advance;
    }
}

/// How much of `text` goes on one line of that width: whole words, but at least one of them.
std::size_t lineLength(Font& font, std::string_view text, int width)
{
    std::size_t fits = 0;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find(' ', at), text.size());
        if (fits != 0 && widthOf(font, text.substr(0, end)) > width)
            break;
        fits = end;
        at = end + 1;
    }
    return fits != 0 ? fits : text.size();
}

void wrap(Lines& lines, Font& font, std::string_view paragraph, int width)
{
    do {
        const std::size_t length = lineLength(font, paragraph, width);
        lines.push_back(paragraph.substr(0, length));
        paragraph.remove_prefix(std::min(paragraph.size(), length + 1)); // The space goes as well.
    } while (!paragraph.empty());
}

Lines linesOf(Font& font, std::string_view text, int width, UINT format)
{
    if ((format & DT_SINGLELINE) != 0)
        return { text };
    Lines lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        if ((format & DT_WORDBREAK) != 0)
            wrap(lines, font, text.substr(0, end), width);
        else
            lines.push_back(text.substr(0, end));
        const bool pair = text.substr(end, 2) == "\r\n";
        text.remove_prefix(std::min(text.size(), end + (pair ? 2 : 1)));
    }
    return lines;
}

/// An ampersand marks the letter after it, two stand for one. The marks are left out.
std::string withoutPrefixes(std::string_view text)
{
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '&' && ++i == text.size())
            break;
        plain += text[i];
    }
    return plain;
}

int topOf(const RECT& area, int height, UINT format)
{
    if ((format & DT_SINGLELINE) == 0)
        return area.top;
    if ((format & DT_VCENTER) != 0)
        return area.top + (area.bottom - area.top - height) / 2;
    return (format & DT_BOTTOM) != 0 ? area.bottom - height : area.top;
}

int leftOf(const RECT& area, int width, UINT format)
{
    if ((format & DT_CENTER) != 0)
        return area.left + (area.right - area.left - width) / 2;
    return (format & DT_RIGHT) != 0 ? area.right - width : area.left;
}

int widest(Font& font, const Lines& lines)
{
    int width = 0;
    for (const std::string_view line : lines)
        width = std::max(width, widthOf(font, line));
    return width;
}

void drawLines(DeviceContext& context, const Lines& lines, const RECT& area, int top, UINT format)
{
    const RECT device { area.left + context.origin.x, area.top + context.origin.y,
        area.right + context.origin.x, area.bottom + context.origin.y };
    const RECT& clip = (format & DT_NOCLIP) != 0 ? unbounded : device;
    int y = top + context.origin.y;
    for (const std::string_view line : lines) {
        const int left = leftOf(device, widthOf(context.textFont(), line), format);
        drawLine(context, line, left, y, clip);
        y += context.textFont().height();
    }
}

} // namespace

} // namespace kez::winapi

using namespace kez::winapi;

BOOL WINAPI GetTextExtentPoint32A(HDC handle, LPCSTR text, int count, LPSIZE size)
{
    DeviceContext* context = contexts().find(handle);
    if (context == nullptr || text == nullptr || count < 0 || size == nullptr)
        return FALSE;
    Font& font = context->textFont();
    *size = { widthOf(font, { text, static_cast<std::size_t>(count) }), font.height() };
    return TRUE;
}

int WINAPI DrawTextA(HDC handle, LPCSTR text, int count, LPRECT area, UINT format)
{
    DeviceContext* context = contexts().find(handle);
    if (context == nullptr || text == nullptr || area == nullptr || count < -1)
        return 0;
    const std::size_t length = count < 0 ? std::strlen(text) : static_cast<std::size_t>(count);
    const std::string_view whole(text, length);
    const std::string shown
        = (format & DT_NOPREFIX) != 0 ? std::string(whole) : withoutPrefixes(whole);
    Font& font = context->textFont();
    const Lines lines = linesOf(font, shown, area->right - area->left, format);
    const int height = static_cast<int>(lines.size()) * font.height();
    if ((format & DT_CALCRECT) != 0) {
        area->right = area->left + widest(font, lines);
        area->bottom = area->top + height;
        return height;
    }
    const int top = topOf(*area, height, format);
    drawLines(*context, lines, *area, top, format);
    return top + height - area->top;
}
