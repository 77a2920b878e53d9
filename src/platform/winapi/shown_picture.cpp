// SPDX-License-Identifier: MIT
#include "shown_picture.h"

#include <SDL.h>

#include <algorithm>
#include <cstring>

namespace kez::winapi {

ShownPicture::ShownPicture(SDL_Renderer* renderer)
    : renderer_(renderer)
{
}

ShownPicture::~ShownPicture()
{
    if (texture_ != nullptr)
        SDL_DestroyTexture(texture_);
}

bool ShownPicture::resize(int width, int height)
{
    if (texture_ != nullptr && width == size_.cx && height == size_.cy)
        return true;
    if (texture_ != nullptr)
        SDL_DestroyTexture(texture_);
    texture_ = SDL_CreateTexture(
        renderer_, SDL_PIXELFORMAT_RGB888, SDL_TEXTUREACCESS_STREAMING, width, height);
    size_ = { width, height };
    // No pixel has its top bits set, so every row differs and is taken over.
    pixels_.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0xFFFFFFFF);
    row_.resize(static_cast<std::size_t>(width));
    return texture_ != nullptr;
}

bool ShownPicture::takeRow(const PixelView& view, int y)
{
    static const PixelFormat usual = PixelFormat::ofDepth(32);
    const DDPIXELFORMAT format = view.format->description();
    const DDPIXELFORMAT own = usual.description();
    const bool same = format.dwRGBBitCount == 32 && format.dwRBitMask == own.dwRBitMask
        && format.dwGBitMask == own.dwGBitMask && format.dwBBitMask == own.dwBBitMask;
    for (int x = 0; x < view.width; ++x) {
        const BYTE* pixel = view.at(x, y);
        DWORD& taken = row_[static_cast<std::size_t>(x)];
        if (same)
            std::memcpy(&taken, pixel, sizeof taken);
        else
            taken = usual.pack(view.format->unpack(view.format->read(pixel)));
        taken &= 0xFFFFFF;
    }
    DWORD* kept = pixels_.data() + static_cast<std::ptrdiff_t>(y) * view.width;
    if (std::equal(row_.begin(), row_.end(), kept))
        return false;
    std::ranges::copy(row_, kept);
    return true;
}

bool ShownPicture::update(const PixelView& view)
{
    if (!view || !resize(view.width, view.height))
        return false;
    int first = view.height;
    int last = -1;
    for (int y = 0; y < view.height; ++y) {
        if (!takeRow(view, y))
            continue;
        first = std::min(first, y);
        last = y;
    }
    if (last < 0)
        return false;
    const SDL_Rect changed { 0, first, view.width, last - first + 1 };
    SDL_UpdateTexture(texture_, &changed,
        pixels_.data() + static_cast<std::ptrdiff_t>(first) * view.width,
        view.width * static_cast<int>(sizeof(DWORD)));
    return true;
}

void ShownPicture::draw(SIZE window)
{
    SDL_SetRenderDrawColor(renderer_, 0, 0, 0, SDL_ALPHA_OPAQUE);
    SDL_RenderClear(renderer_);
    if (texture_ != nullptr && window.cx > 0 && window.cy > 0) {
        const Fit fit = Fit::of(window, size_);
        SDL_SetTextureScaleMode(
            texture_, fit.isWhole() ? SDL_ScaleModeNearest : SDL_ScaleModeLinear);
        const SDL_Rect place { fit.place.left, fit.place.top, fit.place.right - fit.place.left,
            fit.place.bottom - fit.place.top };
        SDL_RenderCopy(renderer_, texture_, nullptr, &place);
    }
    SDL_RenderPresent(renderer_);
}

} // namespace kez::winapi
