// SPDX-License-Identifier: MIT
#include "blit_peers.h"

#define SDL_MAIN_HANDLED
#include <SDL.h>
#include <pixman.h>

#include <cstring>

namespace kez::bench {

namespace {

struct FreeSurface {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};

using Surface = std::unique_ptr<SDL_Surface, FreeSurface>;

Surface surfaceOver(const std::uint32_t* pixels, int width, int height)
{
    return Surface(SDL_CreateRGBSurfaceWithFormatFrom(const_cast<std::uint32_t*>(pixels), width,
        height, 32, 4 * width, SDL_PIXELFORMAT_ARGB8888));
}

SDL_Rect centred(int width, int height)
{
    return { (canvasWidth - width) / 2, (canvasHeight - height) / 2, width, height };
}

class SdlBlit : public Peer {
public:
    SdlBlit(Canvas canvas, Surface sprite)
        : canvas_(surfaceOver(canvas.data(), canvasWidth, canvasHeight))
        , sprite_(std::move(sprite))
    {
    }

    void draw() override
    {
        SDL_Rect place = centred(sprite_->w, sprite_->h);
        SDL_BlitSurface(sprite_.get(), nullptr, canvas_.get(), &place);
    }

private:
    Surface canvas_;
    Surface sprite_;
};

class SdlScaled : public Peer {
public:
    SdlScaled(Canvas canvas, const PixelView& sprite, int width, int height)
        : canvas_(surfaceOver(canvas.data(), canvasWidth, canvasHeight))
        , sprite_(surfaceOver(sprite.pixels, sprite.width, sprite.height))
        , width_(width)
        , height_(height)
    {
        SDL_SetSurfaceBlendMode(sprite_.get(), SDL_BLENDMODE_NONE);
    }

    void draw() override
    {
        SDL_Rect place = centred(width_, height_);
        SDL_BlitScaled(sprite_.get(), nullptr, canvas_.get(), &place);
    }

private:
    Surface canvas_;
    Surface sprite_;
    int width_;
    int height_;
};

class SdlFill : public Peer {
public:
    SdlFill(Canvas canvas, int width, int height, std::uint32_t pixel)
        : canvas_(surfaceOver(canvas.data(), canvasWidth, canvasHeight))
        , place_(centred(width, height))
        , pixel_(pixel)
    {
    }

    void draw() override { SDL_FillRect(canvas_.get(), &place_, pixel_); }

private:
    Surface canvas_;
    SDL_Rect place_;
    std::uint32_t pixel_;
};

struct FreeImage {
    void operator()(pixman_image_t* image) const { pixman_image_unref(image); }
};

using PixmanImage = std::unique_ptr<pixman_image_t, FreeImage>;

PixmanImage imageOver(const std::uint32_t* pixels, int width, int height, bool hasAlpha)
{
    return PixmanImage(pixman_image_create_bits(hasAlpha ? PIXMAN_a8r8g8b8 : PIXMAN_x8r8g8b8, width,
        height, const_cast<std::uint32_t*>(pixels), 4 * width));
}

class PixmanBlit : public Peer {
public:
    PixmanBlit(Canvas canvas, PixmanImage source, int width, int height, pixman_op_t operation)
        : canvas_(imageOver(canvas.data(), canvasWidth, canvasHeight, false))
        , source_(std::move(source))
        , place_(centred(width, height))
        , operation_(operation)
    {
    }

    void draw() override
    {
        pixman_image_composite32(operation_, source_.get(), nullptr, canvas_.get(), 0, 0, 0, 0,
            place_.x, place_.y, place_.w, place_.h);
    }

private:
    PixmanImage canvas_;
    PixmanImage source_;
    SDL_Rect place_;
    pixman_op_t operation_;
};

class PixmanPresent : public Peer {
public:
    explicit PixmanPresent(Canvas canvas)
        : canvas_(imageOver(canvas.data(), canvasWidth, canvasHeight, false))
        , pixels_(static_cast<std::size_t>(canvasWidth * canvasHeight / 2))
        , display_(pixman_image_create_bits(
              PIXMAN_r5g6b5, canvasWidth, canvasHeight, pixels_.data(), 2 * canvasWidth))
    {
    }

    void draw() override
    {
        pixman_image_composite32(PIXMAN_OP_SRC, canvas_.get(), nullptr, display_.get(), 0, 0, 0, 0,
            0, 0, canvasWidth, canvasHeight);
    }

private:
    PixmanImage canvas_;
    std::vector<std::uint32_t> pixels_; // two of the display's in each
    PixmanImage display_;
};

SDL_BlendMode blendMode(PeerBlit kind)
{
    return kind == PeerBlit::Blend ? SDL_BLENDMODE_BLEND : SDL_BLENDMODE_NONE;
}

} // namespace

std::unique_ptr<Peer> sdlBlit(Canvas canvas, const PixelView& sprite, PeerBlit kind)
{
    Surface surface = surfaceOver(sprite.pixels, sprite.width, sprite.height);
    SDL_SetSurfaceBlendMode(surface.get(), blendMode(kind));
    return std::make_unique<SdlBlit>(canvas, std::move(surface));
}

std::unique_ptr<Peer> sdlRuns(Canvas canvas, const PixelView& sprite, PeerBlit kind)
{
    // The library encodes in place, so it gets a surface of its own.
    const Surface view = surfaceOver(sprite.pixels, sprite.width, sprite.height);
    Surface surface(SDL_DuplicateSurface(view.get()));
    SDL_SetSurfaceBlendMode(surface.get(), blendMode(kind));
    if (kind == PeerBlit::Copy)
        SDL_SetColorKey(surface.get(), SDL_TRUE, 0);
    SDL_SetSurfaceRLE(surface.get(), 1);
    return std::make_unique<SdlBlit>(canvas, std::move(surface));
}

std::unique_ptr<Peer> sdlPalette(Canvas canvas, const std::vector<std::uint8_t>& indices, int width,
    int height, const std::uint8_t* palette)
{
    Surface surface(SDL_CreateRGBSurfaceWithFormat(0, width, height, 8, SDL_PIXELFORMAT_INDEX8));
    for (int y = 0; y < height; ++y) {
        std::memcpy(static_cast<std::uint8_t*>(surface->pixels) + y * surface->pitch,
            indices.data() + y * width, static_cast<std::size_t>(width));
    }
    SDL_Color colours[256];
    for (int i = 0; i < 256; ++i)
        colours[i] = { palette[4 * i + 2], palette[4 * i + 1], palette[4 * i], 255 };
    SDL_SetPaletteColors(surface->format->palette, colours, 0, 256);
    return std::make_unique<SdlBlit>(canvas, std::move(surface));
}

std::unique_ptr<Peer> sdlScaled(
    Canvas canvas, const PixelView& sprite, int displayedWidth, int displayedHeight)
{
    return std::make_unique<SdlScaled>(canvas, sprite, displayedWidth, displayedHeight);
}

std::unique_ptr<Peer> pixmanBlit(Canvas canvas, const PixelView& sprite, PeerBlit kind)
{
    const bool hasAlpha = kind == PeerBlit::Blend;
    return std::make_unique<PixmanBlit>(canvas,
        imageOver(sprite.pixels, sprite.width, sprite.height, hasAlpha), sprite.width,
        sprite.height, hasAlpha ? PIXMAN_OP_OVER : PIXMAN_OP_SRC);
}

std::unique_ptr<Peer> pixmanPresent(Canvas canvas)
{
    return std::make_unique<PixmanPresent>(canvas);
}

std::unique_ptr<Peer> sdlFill(Canvas canvas, int width, int height, std::uint32_t pixel)
{
    return std::make_unique<SdlFill>(canvas, width, height, pixel);
}

std::unique_ptr<Peer> pixmanFill(Canvas canvas, int width, int height, std::uint32_t pixel)
{
    const auto channel
        = [pixel](int shift) { return static_cast<std::uint16_t>((pixel >> shift & 255) * 257); };
    const std::uint32_t alpha = pixel >> 24;
    const auto weighed = [&](int shift) { // the library wants colours multiplied by their alpha
        return static_cast<std::uint16_t>(std::uint32_t { channel(shift) } * alpha / 255);
    };
    const pixman_color_t colour { weighed(16), weighed(8), weighed(0), channel(24) };
    return std::make_unique<PixmanBlit>(canvas,
        PixmanImage(pixman_image_create_solid_fill(&colour)), width, height,
        alpha == 255 ? PIXMAN_OP_SRC : PIXMAN_OP_OVER);
}

} // namespace kez::bench
