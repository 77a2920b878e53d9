// SPDX-License-Identifier: MIT
#include "font.h"

#include "font_files.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace kez::winapi {

namespace {

constexpr int usualCell = 16; // What a height of 0 stands for.
constexpr int largestEm = 1024;
constexpr int missingAdvance = 8;

// Never destroyed: fonts of static objects may outlive this library's own.
FT_Library library()
{
    static FT_Library only = [] {
        FT_Library opened = nullptr;
        return FT_Init_FreeType(&opened) == 0 ? opened : nullptr;
    }();
    return only;
}

int scaled(int units, int em, const FT_FaceRec_& face)
{
    return static_cast<int>(std::lround(static_cast<double>(units) * em / face.units_per_EM));
}

} // namespace

void Font::FaceCloser::operator()(FT_FaceRec_* face) const
{
    FT_Done_Face(face);
}

Font::Font(const FontRequest& request)
    : underline_(request.underline)
{
    const std::optional<FontFile> file = findFontFile(request);
    FT_Face face = nullptr;
    if (!file || library() == nullptr
        || FT_New_Face(library(), file->path.c_str(), file->index, &face) != 0)
        return;
    face_.reset(face);
    if (!FT_IS_SCALABLE(face)) {
        face_.reset();
        return;
    }
    embolden_ = file->lighter;
    slant_ = file->upright;
    setSize(request.height);
}

void Font::setSize(int height)
{
    if (height < 0) {
        measure(std::min(largestEm, height == INT32_MIN ? largestEm : -height));
        return;
    }
    // The largest em whose lines fit into the cell.
    const int cell = std::min(largestEm, height == 0 ? usualCell : height);
    int em = cell;
    for (measure(em); height_ > cell && em > 1; measure(em))
        --em;
}

void Font::measure(int em)
{
    FT_Set_Pixel_Sizes(face_.get(), 0, static_cast<FT_UInt>(em));
    ascent_ = scaled(face_->ascender, em, *face_);
    height_ = std::max(1, ascent_ - scaled(face_->descender, em, *face_));
    underlineThickness_ = std::max(1, scaled(face_->underline_thickness, em, *face_));
    const int middle = ascent_ - scaled(face_->underline_position, em, *face_);
    underlineTop_ = std::clamp(
        middle - underlineThickness_ / 2, ascent_ + 1, std::max(ascent_ + 1, height_ - 1));
}

const Glyph& Font::glyph(char32_t character)
{
    const auto known = glyphs_.find(character);
    return known != glyphs_.end() ? known->second
                                  : glyphs_.emplace(character, render(character)).first->second;
}

Glyph Font::render(char32_t character) const
{
    Glyph glyph { .advance = missingAdvance, .coverage = {} };
    constexpr FT_Int32 mode = FT_LOAD_NO_BITMAP | FT_LOAD_TARGET_LIGHT;
    if (face_ == nullptr || FT_Load_Char(face_.get(), character, mode) != 0)
        return glyph;
    FT_GlyphSlot slot = face_->glyph;
    glyph.advance
        = static_cast<int>(std::lround(static_cast<double>(slot->linearHoriAdvance) / 65536));
    if (embolden_)
        FT_Outline_Embolden(&slot->outline, face_->size->metrics.y_ppem * 64 / 24);
    if (slant_) {
        const FT_Matrix shear { 0x10000, 0x03700, 0, 0x10000 }; // About twelve degrees.
        FT_Outline_Transform(&slot->outline, &shear);
    }
    if (FT_Render_Glyph(slot, FT_RENDER_MODE_NORMAL) != 0)
        return glyph;
    const FT_Bitmap& bitmap = slot->bitmap;
    glyph.left = slot->bitmap_left;
    glyph.top = slot->bitmap_top;
    glyph.width = static_cast<int>(bitmap.width);
    glyph.rows = static_cast<int>(bitmap.rows);
    for (int y = 0; y < glyph.rows; ++y) {
        const BYTE* row = bitmap.buffer + static_cast<std::ptrdiff_t>(y) * bitmap.pitch;
        glyph.coverage.insert(glyph.coverage.end(), row, row + bitmap.width);
    }
    return glyph;
}

} // namespace kez::winapi
