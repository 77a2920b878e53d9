// SPDX-License-Identifier: MIT
#include "desk.h"

#include "gdi_text.h"
#include "host_window.h"
#include "png_file.h"
#include "surface_pixels.h"

#include <algorithm>
#include <utility>

namespace kez::player {

namespace {

struct Button {
    const char* sheet; // its lit look, in the artwork's directory
    const char* caption;
    RECT area;
    int key; // a letter that chooses it
};

constexpr std::array<Button, deskChoices> buttons { {
    { "desk_camera.png", "C", { 40, 370, 200, 470 }, 'C' },
    { "desk_book.png", "B", { 240, 370, 400, 470 }, 'B' },
    { "desk_quit.png", "Q", { 440, 370, 600, 470 }, 'Q' },
} };

// Where the artwork has its frame and the plate below it.
constexpr RECT frame { 160, 70, 480, 310 };
constexpr RECT plate { 202, 322, 438, 346 };
constexpr DWORD blinkEveryMs = 4700;
constexpr DWORD blinkMs = 160;

constexpr int margin = 14; // around a text in the frame

constexpr std::uint32_t wood = 0xFF8A6A4A;
constexpr std::uint32_t plainButton = 0xFF5B7FA6;
constexpr std::uint32_t litButton = 0xFF8FB8E8;
constexpr std::uint32_t emptyFrame = 0xFFF4EEDD;

constexpr COLORREF inkColour = RGB(0x33, 0x30, 0x4D);
constexpr COLORREF paperColour = RGB(0xFF, 0xFF, 0xFF);

// The name of a picture that was not kept is its number behind a tilde; a child knows the number.
std::string labelOf(const std::string& name)
{
    return name.starts_with('~') ? name.substr(1) : name;
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

Picture readSheet(const std::string& artwork, const std::string& name)
{
    return readPng(artwork + '\\' + name).value_or(Picture {});
}

// As large as the frame allows, in its middle.
void layInFrame(Picture& page, const Picture& picture)
{
    const int width = frame.right - frame.left;
    const int height = frame.bottom - frame.top;
    const double factor = std::min(
        static_cast<double>(width) / picture.width, static_cast<double>(height) / picture.height);
    const Picture shown = resized(picture, std::max(1, static_cast<int>(picture.width * factor)),
        std::max(1, static_cast<int>(picture.height * factor)));
    const int left = frame.left + (width - shown.width) / 2;
    const int top = frame.top + (height - shown.height) / 2;
    for (int y = 0; y < shown.height; ++y) {
        for (int x = 0; x < shown.width; ++x)
            page.at(left + x, top + y) = shown.at(x, y);
    }
}

} // namespace

Desk::Desk(const std::string& artwork)
    : backdrop_(readSheet(artwork, "desk.png"))
    , guideWaits_(readGuide(artwork, "desk_waiting"))
    , guideIsGlad_(readGuide(artwork, "desk_glad"))
{
    std::ranges::transform(buttons, lit_.begin(),
        [&](const Button& button) { return readSheet(artwork, button.sheet); });
}

Desk::Guide Desk::readGuide(const std::string& artwork, const std::string& name)
{
    return { readSheet(artwork, name + ".png"), readSheet(artwork, name + "_blink.png") };
}

const Desk::Guide& Desk::guide() const
{
    return handedBack_.picture.empty() ? guideWaits_ : guideIsGlad_;
}

void Desk::lay(HandedBack handedBack)
{
    handedBack_ = std::move(handedBack);
    since_.reset();
    blinks_ = false;
}

bool Desk::passTime(DWORD now)
{
    if (guide().shutEyes.empty())
        return false;
    if (!since_)
        since_ = now;
    const bool blinks = (now - *since_) % blinkEveryMs >= blinkEveryMs - blinkMs;
    return std::exchange(blinks_, blinks) != blinks;
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
    overlay(page, guide().awake);
    if (blinks_)
        overlay(page, guide().shutEyes);
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
        writeText(context, plate, labelOf(handedBack_.name), { .height = 15, .colour = inkColour });
    const RECT inside { frame.left + margin, frame.top + margin, frame.right - margin,
        frame.bottom - margin };
    if (handedBack_.picture.empty())
        writeText(context, inside, notes_,
            { .height = 15, .colour = inkColour, .placing = DT_LEFT | DT_WORDBREAK });
}

} // namespace kez::player
