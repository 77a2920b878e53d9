// SPDX-License-Identifier: MIT
#include "speech_bubble.h"

#include "gdi_text.h"
#include "png_file.h"
#include "surface_pixels.h"

namespace kez::player {

namespace {

// At the top, where it covers no button and no cell. The artwork has its bubble there, and keeps
// this much of it free for two lines.
constexpr RECT inside { 58, 3, 542, 37 };
constexpr COLORREF plainPaper = RGB(0xFF, 0xF3, 0xD6);
constexpr TextLook look { 14, FW_BOLD, RGB(0x4B, 0x2E, 0x3E), DT_CENTER | DT_WORDBREAK };

void fillPlainly(HDC context)
{
    const HBRUSH paper = CreateSolidBrush(plainPaper);
    FillRect(context, &inside, paper);
    DeleteObject(paper);
}

} // namespace

SpeechBubble::SpeechBubble(const std::string& artwork)
    : artwork_(readPng(artwork + "\\caption.png").value_or(Picture {}))
{
}

void SpeechBubble::draw(IDirectDrawSurface& surface, const std::string& text) const
{
    if (auto picture = readSurface(surface); picture && !artwork_.empty()) {
        overlay(*picture, artwork_);
        writeSurface(surface, *picture);
    }
    HDC context = nullptr;
    if (surface.GetDC(&context) != DD_OK)
        return;
    if (artwork_.empty())
        fillPlainly(context);
    writeInMiddle(context, inside, text, look);
    surface.ReleaseDC(context);
}

} // namespace kez::player
