// SPDX-License-Identifier: MIT
#include "desk.h"

#include "gdi_text.h"
#include "host_window.h"
#include "png_file.h"
#include "surface_pixels.h"

#include <algorithm>

namespace kez::player {
namespace {

struct Button {
    const char* sheet; // Its lit look, in the artwork's directory.
    const char* caption;
    RECT area;
    int key; // A letter that chooses it.
};

constexpr std::array<Button, deskChoices> buttons { {
    { "desk_camera.png", "C", { 40, 370, 200, 470 }, 'C' },
    { "desk_book.png", "B", { 240, 370, 400, 470 }, 'B' },
    { "desk_quit.png", "Q", { 440, 370, 600, 470 }, 'Q' },
} };

// Where the artwork has its frame, the plate below it and the sheet of paper beside it.
constexpr RECT frame { 160, 70, 480, 310 };
constexpr RECT plate { 202, 322, 438, 346 };
constexpr RECT paperSheet { 523, 102, 626, 250 };
constexpr int margin = 14; // Around a text in the frame.

constexpr std::uint32_t wood = 0xFF8A6A4A;
constexpr std::uint32_t plainButton = 0xFF5B7FA6;
constexpr std::uint32_t litButton = 0xFF8FB8E8;
constexpr std::uint32_t emptyFrame = 0xFFF4EEDD;

constexpr COLORREF inkColour = RGB(0x33, 0x30, 0x4D);
constexpr COLORREF paperColour = RGB(0xFF, 0xFF, 0xFF);
constexpr const char* keyHints = "C  camera\nB  book\nQ  quit\n\nF11  full\nscreen";

std::string labelOf(const HandedBack& handedBack)
{
    return handedBack.name + "   " + std::to_string(handedBack.picture.width) + " x "
        + std::to_string(handedBack.picture.height);
}

// Paths may be longer than a line; lines are broken only between words.
std::string withShortWords(const std::string& text)
{
    constexpr int longestWord = 32;
    std::string result;
    int length = 0;
    for (const char character : text) {
        length = character == ' ' || character == '\n' ? 0 : length + 1;
        if (length > longestWord) {
            result += '\n';
            length = 1;
        }
        result += character;
    }
    return result;
}

bool contains(const RECT& area, int x, int y)
{
    return x >= area.left && x < area.right && y >= area.top && y < area.bottom;
}

void fill(Picture& page, const RECT& area, std::uint32_t colour)
{
    for (int y = area.top; y < area.bottom; ++y)
        std::fill_n(&page.at(area.left, y), area.right - area.left, colour);
}

std::uint32_t blend(std::uint32_t below, std::uint32_t above)
{
    const std::uint32_t opacity = above >> 24;
    std::uint32_t result = 0xFF000000u;
    for (const int shift : { 16, 8, 0 }) {
        const std::uint32_t mixed
            = (above >> shift & 0xFF) * opacity + (below >> shift & 0xFF) * (255 - opacity);
        result |= mixed / 255 << shift;
    }
    return result;
}

void overlay(Picture& page, const Picture& sheet)
{
    for (int y = 0; y < std::min(page.height, sheet.height); ++y) {
        for (int x = 0; x < std::min(page.width, sheet.width); ++x)
            page.at(x, y) = blend(page.at(x, y), sheet.at(x, y));
    }
}

// As large as whole steps of magnification allow, in the middle of the frame.
void layInFrame(Picture& page, const Picture& picture)
{
    const int width = frame.right - frame.left;
    const int height = frame.bottom - frame.top;
    const int scale = std::max(1, std::min(width / picture.width, height / picture.height));
    const int shownWidth = std::min(width, picture.width * scale);
    const int shownHeight = std::min(height, picture.height * scale);
    const int left = frame.left + (width - shownWidth) / 2;
    const int top = frame.top + (height - shownHeight) / 2;
    for (int y = 0; y < shownHeight; ++y) {
        for (int x = 0; x < shownWidth; ++x)
            page.at(left + x, top + y) = picture.at(x / scale, y / scale);
    }
}

} // namespace

Desk::Desk(const std::string& artwork)
    : backdrop_(readPng(artwork + "\\desk.png").value_or(Picture {}))
{
    std::ranges::transform(buttons, lit_.begin(), [&](const Button& button) {
        return readPng(artwork + "\\" + button.sheet).value_or(Picture {});
    });
}

void Desk::setNotes(const std::string& notes)
{
    notes_ = withShortWords(notes);
}

bool Desk::point(int x, int y)
{
    const auto before = chosen_;
    const auto* hit = std::ranges::find_if(
        buttons, [=](const Button& button) { return contains(button.area, x, y); });
    chosen_.reset();
    if (hit != buttons.end())
        chosen_ = static_cast<std::size_t>(hit - buttons.begin());
    return chosen_ != before;
}

std::optional<DeskChoice> Desk::press(int x, int y)
{
    point(x, y);
    if (!chosen_)
        return std::nullopt;
    return static_cast<DeskChoice>(*chosen_);
}

std::optional<DeskChoice> Desk::key(int virtualKey)
{
    switch (virtualKey) {
    case VK_ESCAPE:
        return DeskChoice::Quit;
    case VK_RETURN:
        return chosen_ ? std::optional(static_cast<DeskChoice>(*chosen_)) : std::nullopt;
    case VK_DOWN:
    case VK_RIGHT:
        step(1);
        return std::nullopt;
    case VK_UP:
    case VK_LEFT:
        step(-1);
        return std::nullopt;
    default:
        break;
    }
    const auto* named = std::ranges::find(buttons, virtualKey, &Button::key);
    if (named == buttons.end())
        return std::nullopt;
    return static_cast<DeskChoice>(named - buttons.begin());
}

void Desk::step(int by)
{
    const int count = static_cast<int>(deskChoices);
    const int from = chosen_ ? static_cast<int>(*chosen_) : (by > 0 ? -1 : 0);
    chosen_ = static_cast<std::size_t>((from + by + count) % count);
}

Picture Desk::draw(IDirectDrawSurface& paper) const
{
    Picture page = blankPicture(HostWindow::width, HostWindow::height, wood);
    drawSheets(page);
    if (!writeSurface(paper, page))
        return page;
    HDC context = nullptr;
    if (paper.GetDC(&context) == DD_OK) {
        writeTexts(context);
        paper.ReleaseDC(context);
    }
    return readSurface(paper).value_or(std::move(page));
}

void Desk::drawSheets(Picture& page) const
{
    overlay(page, backdrop_);
    for (std::size_t i = 0; i < deskChoices; ++i) {
        const bool isLit = chosen_ == i;
        if (isLit && !lit_[i].empty())
            overlay(page, lit_[i]);
        else if (backdrop_.empty())
            fill(page, buttons[i].area, isLit ? litButton : plainButton);
    }
    if (!handedBack_.picture.empty())
        layInFrame(page, handedBack_.picture);
    else if (backdrop_.empty())
        fill(page, frame, emptyFrame);
}

void Desk::writeTexts(HDC context) const
{
    if (backdrop_.empty()) {
        for (const Button& button : buttons)
            writeText(
                context, button.area, button.caption, { .height = 48, .colour = paperColour });
    }
    if (!handedBack_.picture.empty())
        writeText(context, plate, labelOf(handedBack_), { .height = 15, .colour = inkColour });
    TextLook look { .height = 13, .colour = inkColour, .placing = DT_LEFT | DT_WORDBREAK };
    writeText(context, paperSheet, keyHints, look);
    RECT inside { frame.left + margin, frame.top + margin, frame.right - margin,
        frame.bottom - margin };
    look.height = 15;
    if (handedBack_.picture.empty())
        writeText(context, inside, notes_, look);
}

} // namespace kez::player
