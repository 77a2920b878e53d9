// SPDX-License-Identifier: MIT
/// The copy of the primary surface that SDL draws: 32-bit pixels in a texture, drawn into the
/// window as large as fits.
#pragma once

#include "fit.h"
#include "pixel_format.h"

#include <vector>

struct SDL_Renderer;
struct SDL_Texture;

namespace kez::winapi {

class ShownPicture {
public:
    explicit ShownPicture(SDL_Renderer* renderer);
    ~ShownPicture();
    ShownPicture(const ShownPicture&) = delete;
    ShownPicture& operator=(const ShownPicture&) = delete;

    /// Takes over the rows that differ; true when there were any. A null view leaves the picture.
    bool update(const PixelView& view);
    void draw(SIZE window);

private:
    bool prepare(const PixelView& view);
    bool takeRow(const PixelView& view, int y);

    SDL_Renderer* renderer_;
    SDL_Texture* texture_ = nullptr;
    SIZE size_ { 0, 0 };
    PixelFormat format_;
    bool empty_ = true; ///< No row has been taken over yet.
    std::vector<BYTE> taken_; ///< The surface's rows as they were, without what fills them up.
    std::vector<DWORD> pixels_;
};

} // namespace kez::winapi
