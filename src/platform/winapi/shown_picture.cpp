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

bool ShownPicture::prepare(const PixelView& view)
{
    const bool same = view.width == size_.cx && view.height == size_.cy && *view.format == format_;
    if (texture_ != nullptr && same)
        return true;
    if (texture_ != nullptr)
        SDL_DestroyTexture(texture_);
    texture_ = SDL_CreateTexture(
        renderer_, SDL_PIXELFORMAT_RGB888, SDL_TEXTUREACCESS_STREAMING, view.width, view.height);
    size_ = { view.width, view.height };
    format_ = *view.format;
    empty_ = true;
    const auto count = static_cast<std::size_t>(view.width) * static_cast<std::size_t>(view.height);
    taken_.resize(count * static_cast<std::size_t>(format_.bytes()));
    pixels_.resize(count);
    return texture_ != nullptr;
}

bool ShownPicture::takeRow(const PixelView& view, int y)
{
    const std::ptrdiff_t bytes = std::ptrdiff_t { view.width } * format_.bytes();
    BYTE* taken = taken_.data() + y * bytes;
    const BYTE* row = view.at(0, y);
    if (!empty_ && std::memcmp(taken, row, static_cast<std::size_t>(bytes)) == 0)
        return false;
    std::memcpy(taken, row, static_cast<std::size_t>(bytes));
    DWORD* pixel = pixels_.data() + std::ptrdiff_t { y } * view.width;
    for (int x = 0; x < view.width; ++x) {
        const Colour colour
            = format_.unpack(format_.read(row + std::ptrdiff_t { x } * format_.bytes()));
        *pixel++ = static_cast<DWORD>(colour.red << 16 | colour.green << 8 | colour.blue);
    }
    return true;
}

bool ShownPicture::update(const PixelView& view)
{
    if (!view || !prepare(view))
        return false;
    int first = view.height;
    int last = -1;
    for (int y = 0; y < view.height; ++y) {
        if (!takeRow(view, y))
            continue;
        first = std::min(first, y);
        last = y;
    }
    empty_ = false;
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
