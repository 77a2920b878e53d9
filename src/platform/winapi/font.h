// SPDX-License-Identifier: MIT
/// A font at one size: metrics and glyphs as antialiased coverage, drawn by FreeType from the face
/// that fontconfig finds. Without any face it measures as a fixed font of 8 × 15 pixels and its
/// glyphs are empty.
#pragma once

#include "windef.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

struct FT_FaceRec_;

namespace kez::winapi {

struct FontRequest {
    int height = 0; ///< As CreateFontA takes it: em when negative, cell when positive.
    int weight = 0;
    bool italic = false;
    bool underline = false;
    bool fixedPitch = false;
    std::string face; ///< Empty: a usual one.
};

/// Coverage 0–255, rows from the top. `left` and `top` lead from the pen on the base line to the
/// picture's first pixel, `top` upwards.
struct Glyph {
    int advance = 0;
    int left = 0;
    int top = 0;
    int width = 0;
    int rows = 0;
    std::vector<BYTE> coverage;
};

class Font {
public:
    explicit Font(const FontRequest& request);

    [[nodiscard]] int ascent() const { return ascent_; }

    [[nodiscard]] int height() const { return height_; } ///< Of a line: ascent and descent.

    [[nodiscard]] bool underlined() const { return underline_; }

    [[nodiscard]] int underlineTop() const { return underlineTop_; } ///< Below the line's top.

    [[nodiscard]] int underlineThickness() const { return underlineThickness_; }

    [[nodiscard]] const Glyph& glyph(char32_t character); ///< Valid as long as the font.

private:
    struct FaceCloser {
        void operator()(FT_FaceRec_* face) const;
    };

    void setSize(int height);
    void measure(int em);
    [[nodiscard]] Glyph render(char32_t character) const;

    std::unique_ptr<FT_FaceRec_, FaceCloser> face_;
    bool underline_ = false;
    bool embolden_ = false; ///< The face found is lighter than what was asked for.
    bool slant_ = false; ///< The face found is upright.
    int ascent_ = 12;
    int height_ = 15;
    int underlineTop_ = 13;
    int underlineThickness_ = 1;
    std::unordered_map<char32_t, Glyph> glyphs_;
};

} // namespace kez::winapi
