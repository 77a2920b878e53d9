// SPDX-License-Identifier: MIT
#include "sdl_frame.h"

#include "display/view.h"
#include "media/resource_archive.h"
#include "sprites/blit.h"
#include "sprites/image.h"
#include "sprites/rectangle.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string>

#define SDL_MAIN_HANDLED
#include <SDL.h>

namespace kez::bench {

namespace {

using Pixels = std::vector<std::uint32_t>;

struct FreeSurface {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};

using Surface = std::unique_ptr<SDL_Surface, FreeSurface>;

struct Shown {
    Surface surface;
    SDL_Rect place;
};

struct Filled {
    std::vector<SDL_Rect> strips;
    std::uint32_t pixel;
};

// An outline is four strips, inside its box or, with a negative thickness, around it.
Filled filledBy(const Rectangle& rectangle)
{
    const int n = std::abs(rectangle.thickness);
    const int outside = rectangle.thickness < 0 ? n : 0;
    const int left = canvasWidth / 2 + rectangle.x - rectangle.width / 2 - outside;
    const int top = canvasHeight / 2 + rectangle.y - rectangle.height / 2 - outside;
    const int w = rectangle.width + 2 * outside;
    const int h = rectangle.height + 2 * outside;
    const Colour colour = rectangle.colour;
    Filled filled { {}, redOf(colour) << 16 | greenOf(colour) << 8 | blueOf(colour) };
    if (n == 0)
        filled.strips = { { left, top, w, h } };
    else
        filled.strips = { { left, top, w, n }, { left, top + h - n, w, n },
            { left, top + n, n, h - 2 * n }, { left + w - n, top + n, n, h - 2 * n } };
    return filled;
}

// What the archive's records of one image mean together. A half turn writes every pixel out, and
// the second one is undone by reversing.
std::optional<Shown> shownBy(const Image& image)
{
    const std::string name = std::string(image.name().view()) + ".sp5";
    const char* fault = nullptr;
    std::uint8_t* const record = archive()->find(name.c_str());
    const auto sprite = record ? SpriteView::parse(recordBytes(record), fault) : std::nullopt;
    const auto source = sprite ? blitSource({ &*sprite, nullptr, nullptr }) : std::nullopt;
    if (!source)
        return std::nullopt;
    Surface surface(SDL_CreateRGBSurfaceWithFormat(
        0, source->width, source->height, 32, SDL_PIXELFORMAT_ARGB8888));
    auto* const pixels = static_cast<std::uint32_t*>(surface->pixels);
    turn(*source, 180, pixels);
    std::reverse(pixels, pixels + source->width * source->height);
    SDL_SetSurfaceBlendMode(
        surface.get(), turnedHasAlpha(*source) ? SDL_BLENDMODE_BLEND : SDL_BLENDMODE_NONE);
    const SDL_Rect place { image.x + (canvasWidth - source->width) / 2,
        image.y + (canvasHeight - source->height) / 2, source->width, source->height };
    return Shown { std::move(surface), place };
}

class SdlFrame : public Peer {
public:
    explicit SdlFrame(int bits)
        : canvas_(SDL_CreateRGBSurfaceWithFormat(
            0, canvasWidth, canvasHeight, 32, SDL_PIXELFORMAT_RGB888))
        , bits_(bits)
        , display_(static_cast<std::size_t>(canvasWidth * canvasHeight * bits / 8))
    {
        for (List* node = displayList().first(); node != nullptr; node = node->next()) {
            const View& view = *static_cast<View*>(node->item());
            if (view.visible)
                take(const_cast<View&>(view));
        }
    }

    void draw() override
    {
        for (const Shown& shown : shown_) {
            SDL_Rect place = shown.place;
            SDL_BlitSurface(shown.surface.get(), nullptr, canvas_.get(), &place);
        }
        for (const Filled& filled : filled_)
            SDL_FillRects(canvas_.get(), filled.strips.data(),
                static_cast<int>(filled.strips.size()), filled.pixel);
        if (bits_ == 32)
            return;
        SDL_ConvertPixels(canvasWidth, canvasHeight, SDL_PIXELFORMAT_RGB888, canvas_->pixels,
            canvasWidth * 4, bits_ == 16 ? SDL_PIXELFORMAT_RGB565 : SDL_PIXELFORMAT_BGR24,
            display_.data(), canvasWidth * bits_ / 8);
    }

private:
    void take(View& view)
    {
        for (List* node = view.layers().first(); node != nullptr; node = node->next()) {
            Layer& layer = *static_cast<Layer*>(node->item());
            if (!layer.visible)
                continue;
            for (List* item = layer.items().first(); item != nullptr; item = item->next())
                take(*static_cast<Graphic*>(item->item()));
        }
    }

    void take(const Graphic& item)
    {
        if (!item.visible)
            return;
        if (const auto* const rectangle = dynamic_cast<const Rectangle*>(&item))
            filled_.push_back(filledBy(*rectangle));
        const auto* const image = dynamic_cast<const Image*>(&item);
        if (image == nullptr)
            return;
        if (auto shown = shownBy(*image))
            shown_.push_back(std::move(*shown));
    }

    Surface canvas_;
    int bits_;
    std::vector<std::uint8_t> display_;
    std::vector<Shown> shown_;
    std::vector<Filled> filled_;
};

} // namespace

std::unique_ptr<Peer> sdlFrame(int bits)
{
    return std::make_unique<SdlFrame>(bits);
}

} // namespace kez::bench
