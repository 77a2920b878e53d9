// SPDX-License-Identifier: MIT
/// A text on the screen, drawn through the canvas's device context in one colour, on one line or
/// broken into lines at words. It may be longer than its rectangle: nothing is cut off.
#pragma once

#include "display/graphic.h"
#include "sprites/font.h"

#include <cstdint>

namespace kez {

/// Where a text lies in its rectangle. Down the page: 0 centred, above 0 at the top, below 0 at the
/// bottom. Across: 0 centred, above 0 at the right, below 0 at the left.
struct Anchors {
    int vertical = 0;
    int horizontal = 0;
};

class Text : public Graphic {
public:
    enum class Fit { Keep, Measure }; ///< Does a change measure the text anew?

    Text(const char* text, const Placement& placement, bool visible, Colour colour,
        const Anchors& anchors = {}, std::uint32_t word36 = 0);
    Text* clone() const override; ///< Shares the font.
    const String& className() const override;
    void serialize(DataFile& file) override; ///< Then the text, its colour, anchors and wrapping.
    void draw() override;

    void setFont(const Font& font, Fit fit); ///< Borrowed; must outlive the text.

    [[nodiscard]] const Font& font() const { return *font_; }

    void setText(const char* text, Fit fit); ///< Null leaves the text as it is.

    [[nodiscard]] const String& text() const { return text_; }

    /// Gives the rectangle the size of the text (of one space when it is empty). An anchor moves
    /// the centre by the whole change of the size, towards its own side.
    void measure();

    bool flag35 = false; ///< This and the next are carried along; nothing reads them.
    std::uint32_t word36;
    Colour fontColour; ///< Of the font that was set last.
    Anchors anchors;
    bool wordWrap = false; ///< Broken at words inside the rectangle, from its top.

protected:
    Text(const Text&) = default;

private:
    [[nodiscard]] unsigned drawFormat() const;

    const Font* font_;
    String text_;
};

} // namespace kez
